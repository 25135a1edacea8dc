/// @file
/// What comes over the virtual pad's socket: what a program is told first, programs that end at once, bytes without
/// end.
#include "virtualpadrun.h"

#include "patience.h"
#include "socketpath.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// A program that does what a test wants it to, without waiting.
class Connection
{
public:
    Connection()
        : m_descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = kvsim::virtualPadSocket();
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(connect(m_descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        fcntl(m_descriptor, F_SETFL, O_NONBLOCK);
    }
    ~Connection() { close(m_descriptor); }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// How many bytes were taken; -1: the connection is at its end.
    ssize_t say(const std::string &bytes) const
    {
        const ssize_t count = send(m_descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        return count < 0 && errno == EAGAIN ? 0 : count;
    }

    bool hasEnded() const
    {
        char byte = 0;
        const ssize_t count = recv(m_descriptor, &byte, 1, MSG_PEEK);
        return count == 0 || (count < 0 && errno != EAGAIN);
    }

    std::string heard() const
    {
        std::string all(1 << 16, '\0');
        const ssize_t count = recv(m_descriptor, all.data(), all.size(), 0);
        all.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return all;
    }

private:
    int m_descriptor;
};

class VirtualPadConnections : public VirtualPad
{
protected:
    /// What a program is told till the answer to Initial has come.
    static std::string state(const Connection &program)
    {
        std::string told;
        EXPECT_TRUE(until([&] {
            told += program.heard();
            const auto answer = told.find(" Initial ");
            return answer != std::string::npos && told.find('\n', answer) != std::string::npos;
        })) << told;
        return told;
    }
};

TEST_F(VirtualPadConnections, TheGreetingHasAllThatIsWrong)
{
    openWindow();
    const std::tuple<const char *, const char *, const char *> troubles[] = {
        {"Refuse commands", " SetDevicePenStyle -7\n", " Initial 0\n"},
        {"Slow screen", "screen 0 3000\n", " Initial 0\n"},
        {"Wrong model", " GetDevicePartsVersion KVM450 ", " Initial 0\n"}, {"Unplug", "", " Initial -4\n"}};
    for (const auto &[trouble, sign, answer] : troubles) {
        for (const bool isOn : {true, false}) {
            toggle(trouble);
            const Connection program;
            program.say("Initial 5\n");
            const std::string told = state(program);
            const std::string end = isOn ? answer : " Initial 0\n";
            EXPECT_EQ(told.find(sign) != std::string::npos, isOn || *sign == '\0') << trouble << ":\n" << told;
            EXPECT_EQ(told.substr(told.size() - end.size()), end) << trouble; // and nothing behind it
        }
    }
}

TEST_F(VirtualPadConnections, WhatChangesIsToldAsAState)
{
    openWindow();
    const Connection program;
    program.say("Initial 5\n");
    state(program);
    toggle("Refuse commands");
    const std::string refuses = state(program);
    for (const char *command : {"OpenDeviceLCD", "ClearDeviceContent", "ShowVersionInfoOnDevice", "SetDevicePenStyle"})
        EXPECT_NE(refuses.find(std::string(" ") + command + " -7\n"), std::string::npos) << command;
    EXPECT_EQ(refuses.substr(refuses.size() - 11), " Initial 0\n");
    toggle("Unplug");
    const std::string unplugged = state(program);
    EXPECT_EQ(unplugged.rfind("unplug ", 0), 0u) << unplugged;
    EXPECT_EQ(unplugged.substr(unplugged.size() - 12), " Initial -4\n");
    toggle("Unplug");
    EXPECT_EQ(state(program).rfind("plug ", 0), 0u);
}

TEST_F(VirtualPadConnections, AProgramThatEndsWhileItOpensThePadHarmsNothing)
{
    openWindow();
    for (int i = 0; i < 10; ++i) {
        {
            const Connection program;
            program.say("Initial 5\nOpenDeviceLCD 1\n");
        } // the window has not read it yet
        settle();
    }
    EXPECT_TRUE(until([&] { return !face()->display().isOpen; }));
    EXPECT_TRUE(open(kS300Family));
}

TEST_F(VirtualPadConnections, ALineWithoutEndEndsItsConnection)
{
    openWindow();
    const Connection stranger;
    stranger.say(std::string(100, 'x'));
    EXPECT_TRUE(until([&] { return stranger.hasEnded(); }));

    const Connection program;
    program.say("Initial 5\n");
    state(program);
    EXPECT_TRUE(until([&] { return face()->display().isOpen; }));
    constexpr std::size_t kMuch = 32 << 20;
    std::size_t taken = 0;
    EXPECT_TRUE(until([&] {
        const ssize_t count = program.say(std::string(1 << 16, 'x'));
        taken += count > 0 ? static_cast<std::size_t>(count) : 0;
        return count < 0 || taken > kMuch;
    }));
    EXPECT_LT(taken, kMuch);
    EXPECT_TRUE(until([&] { return !face()->display().isOpen; }));
    EXPECT_TRUE(open(kS300Family));
}

TEST_F(VirtualPadConnections, AProgramThatDoesNotListenIsLetGo)
{
    openWindow();
    const Connection program;
    program.say("Initial 5\n");
    EXPECT_TRUE(until([&] { return face()->display().isOpen; }));
    QAction *refuse = nullptr;
    for (QAction *action : window->findChildren<QAction *>())
        refuse = action->text() == "&Refuse commands" ? action : refuse;
    for (int i = 0; i < 20000 && face()->display().isOpen; ++i) { // 600 bytes each
        refuse->trigger();
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(face()->display().isOpen);
}

TEST_F(VirtualPadConnections, ManyConnectionsAreNotTaken)
{
    openWindow();
    {
        std::vector<std::unique_ptr<Connection>> programs;
        for (int i = 0; i < 40; ++i) {
            programs.push_back(std::make_unique<Connection>());
            settle();
        }
        EXPECT_TRUE(until([&] { return programs.back()->hasEnded(); }));
        EXPECT_FALSE(programs.front()->hasEnded());
    }
    EXPECT_TRUE(until([&] { return open(kS300Family); }));
}

} // namespace
