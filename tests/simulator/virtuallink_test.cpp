/// @file
/// How the driver takes what a virtual pad's window sends: states, which it applies as a whole, and nonsense.
#include "fakewindow.h"
#include "patience.h"
#include "simulateddriver.h"
#include "windowreader.h"

#include <atomic>
#include <filesystem>
#include <sstream>

namespace {

using namespace std::chrono_literals;

constexpr const char *kHeader = "version: 2\nmodel: S300\n";
constexpr const char *kOpened = "answer 0 Initial 0\n";

class LinkedSimulator : public SimulatorAlone
{
protected:
    LinkedSimulator()
    {
        char name[] = "/tmp/kv-virtuallink-XXXXXX";
        m_directory = mkdtemp(name);
        setenv("XDG_RUNTIME_DIR", m_directory.c_str(), 1);
        setenv("KVSIM_RECORDING", "virtual", 1);
    }
    ~LinkedSimulator() override
    {
        driver.UnInitial();
        std::filesystem::remove_all(m_directory);
    }

    static bool until(const std::function<bool()> &condition)
    {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (!condition() && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(5ms);
        return condition();
    }

    std::string version() const
    {
        char text[64] = "";
        driver.GetDevicePartsVersion(text, sizeof text);
        return text;
    }

private:
    std::string m_directory;
};

TEST_F(LinkedSimulator, TheGreetingHoldsFromTheFirstCommandOn)
{
    FakeWindow window([](FakeWindow &pad) {
        pad.say(std::string(kHeader) + "text 0 GetDevicePartsVersion KVM450 X\nanswer 0.1 OpenDeviceLCD -7\n"
            + "answer 0.2 SetDevicePenStyle -9\nanswer 5 Initial 0\n");
    });
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    EXPECT_EQ(driver.OpenDeviceLCD(true), -7);
    EXPECT_EQ(driver.SetDevicePenStyle(true), -9);
    EXPECT_EQ(driver.ClearDeviceContent(), 0);
    EXPECT_EQ(version(), "KVM450 X");
}

/// Once a packet has arrived, the driver has read everything that was sent before it.
TEST_F(LinkedSimulator, AStateIsTakenAsAWhole)
{
    FakeWindow window([](FakeWindow &pad) { pad.say(std::string(kHeader) + kOpened); });
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    window.join();
    window.say("text 1 GetDevicePartsVersion other\nanswer 1 OpenDeviceLCD -7\nanswer 1 SetDevicePenStyle -7\n"
               "2 300 300 5 0\n");
    ASSERT_TRUE(until([] { return received.packetCount() == 1; }));
    EXPECT_EQ(driver.OpenDeviceLCD(true), 0);
    EXPECT_EQ(driver.SetDevicePenStyle(true), 0);
    EXPECT_EQ(version(), "KVS300 SIM 1.0");
    window.say("answer 3 Initial 0\n4 301 300 5 1\n");
    ASSERT_TRUE(until([] { return received.packetCount() == 2; }));
    EXPECT_EQ(driver.OpenDeviceLCD(true), -7);
    EXPECT_EQ(driver.SetDevicePenStyle(true), -7);
    EXPECT_EQ(version(), "other");
}

TEST_F(LinkedSimulator, AnUnpluggedPadIsSilentUntilItsStateSaysOtherwise)
{
    FakeWindow window([](FakeWindow &pad) { pad.say(std::string(kHeader) + kOpened); });
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    window.join();
    window.say("unplug 1\nanswer 1 Initial -4\n2 300 300 5 0\nplug 3\nanswer 3 SetDevicePenStyle -9\n"
               "answer 3 Initial 0\n4 301 300 5 0\n");
    ASSERT_TRUE(until([] { return received.packetCount() == 1; }));
    EXPECT_EQ(received.packets[0].x, 301);
    EXPECT_EQ(driver.SetDevicePenStyle(true), -9);
    EXPECT_EQ(driver.OpenDeviceLCD(true), 0);
}

TEST_F(LinkedSimulator, APacketOfAFarTimeDoesNotHideThatTheWindowIsClosed)
{
    FakeWindow window([](FakeWindow &pad) { pad.say(std::string(kHeader) + kOpened); });
    ASSERT_EQ(open(), KVSPDARI_SUCCESS);
    window.join();
    window.say("900000000 300 300 5 0\n");
    window.close();
    EXPECT_TRUE(until([&] { return driver.OpenDeviceLCD(true) == KVSPDARI_LIBUSB_SENT_CMD_FAIL; }));
}

TEST_F(LinkedSimulator, AGreetingThatDripsIsGivenUp)
{
    std::atomic<bool> isAnswered{false}, isDrippedAway{false};
    FakeWindow window([&](FakeWindow &pad) {
        for (int i = 0; i < 600 && !isAnswered; ++i) {
            pad.say(i % 2 == 0 ? "#" : "\n");
            std::this_thread::sleep_for(100ms);
        }
        isDrippedAway = !isAnswered;
        pad.close();
    });
    EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
    isAnswered = true;
    window.join();
    EXPECT_FALSE(isDrippedAway);
}

TEST_F(LinkedSimulator, EndlessGreetingsAreGivenUp)
{
    const std::pair<const char *, std::string> endless[] = {{"", "x"}, {"", "note: x\n"}, {"version: 2\n", "x"},
        {"version: 2\nmodel: S300\n", "answer 0 UnInitial 0\n"},
        {"version: 2\nmodel: S300\n", "text 0 GetDevicePadID "}};
    for (const auto &[begin, part] : endless) {
        std::string parts;
        while (parts.size() < 100000)
            parts += part;
        std::atomic<bool> isTakenAll{true};
        FakeWindow window([&, begin = begin](FakeWindow &pad) {
            pad.say(begin);
            for (int i = 0; i < 2000 && isTakenAll; ++i)
                isTakenAll = pad.say(parts);
            pad.close();
        });
        EXPECT_EQ(open(), KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL);
        window.join();
        EXPECT_FALSE(isTakenAll) << begin << part;
    }
}

/// What a WindowReader hands on for a text: one line for each hand-over, with the parts of a state joined by " + ".
std::string readAll(const std::string &text)
{
    std::istringstream in(text);
    kvsim::WindowReader reader(in);
    std::string all;
    const auto add = [&](const std::vector<kvsim::Event> &events) {
        for (const kvsim::Event &event : events)
            all += (&event == &events.front() ? "" : " + ") + eventLine(event);
        all += "\n";
    };
    add(reader.opening());
    for (std::vector<kvsim::Event> events; reader.next(events);)
        add(events);
    return all;
}

TEST(WindowReader, HandsOnStatesAsAWholeAndTheRestOneByOne)
{
    EXPECT_EQ(
        readAll(std::string(kHeader) + "screen 0 5\nanswer 0 Initial 0\n1 1 2 3 0\n2 1 2 3 2\nunplug 3\n4 1 2 3 0\n"
            + "answer 5 Initial -4\nplug 6\n"),
        "screen 0 5 + answer 0 Initial 0\n1 1 2 3 0\n2 1 2 3 2\n4 1 2 3 0\nunplug 3 + answer 5 Initial -4\n");
}

TEST(WindowReader, RefusesWhatIsNoGreeting)
{
    std::string endless;
    for (int i = 0; i < 1001; ++i)
        endless += "plug 0\n";
    for (const std::string &text : {std::string(), std::string(kHeader), std::string(kHeader) + "plug 0\n",
             std::string(kHeader) + "0 1 2 3 0\nanswer 0 Initial 0\n", kHeader + endless + kOpened,
             std::string("model: S300\n") + kOpened, std::string(kHeader) + "answer 0 Initial\n"})
        EXPECT_THROW(readAll(text), std::runtime_error) << text.substr(0, 100);
}

} // namespace
