// The program as it is started: by hand, by the service manager, as a demo; and how it ends.
#include "bridgerun.h"

#include <QProcess>
#include <QTcpServer>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using bridgerun::until;

namespace {

/// The program, with sockets in the places where a service manager leaves them.
class Program : public QProcess
{
public:
    explicit Program(const QStringList &arguments, std::vector<int> sockets = {})
        : m_sockets(std::move(sockets))
    {
        setProcessChannelMode(QProcess::MergedChannels);
        start(KV_BRIDGE_PROGRAM, QStringList{"--no-lists", "--no-consent", "--unsafe-driver"} + arguments);
    }
    ~Program() override
    {
        kill();
        waitForFinished(60000);
    }

    /// The port on which it listens; 0 when it ends before.
    quint16 port()
    {
        until([&] { return (m_said += readAll()).contains("listens on port ") || state() == NotRunning; });
        const int at = m_said.indexOf("port ") + 5;
        return m_said.mid(at, m_said.indexOf(' ', at) - at).toUShort();
    }
    bool says(const QByteArray &text)
    {
        return until([&] { return (m_said += readAll()).contains(text) || state() == NotRunning; })
            && m_said.contains(text);
    }

    bool ends()
    {
        return until([this] { return state() == NotRunning; });
    }

protected:
    void setupChildProcess() override
    {
        // Out of the way first, for they may be in each other's places.
        std::vector<int> copies;
        for (const int socket : m_sockets)
            copies.push_back(fcntl(socket, F_DUPFD, 20));
        for (std::size_t i = 0; i < copies.size(); ++i)
            dup2(copies[i], static_cast<int>(3 + i));
        if (m_sockets.empty())
            return;
        setenv("LISTEN_PID", std::to_string(getpid()).c_str(), 1);
        setenv("LISTEN_FDS", std::to_string(m_sockets.size()).c_str(), 1);
    }

private:
    const std::vector<int> m_sockets;
    QByteArray m_said;
};

class BridgeProgram : public BridgeTest
{
protected:
    const QStringList m_usual{"--allow-origin", kShop, "--driver", QDir::currentPath()};
};

} // namespace

TEST_F(BridgeProgram, StartsAndEndsInOrder)
{
    for (const int signal : {SIGTERM, SIGKILL}) {
        Program program(QStringList{"--port", "0"} + m_usual);
        bridgerun::Talker client(program.port(), kShop);
        EXPECT_EQ(client.open(), "");
        ::kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_TRUE(client.ends());
        EXPECT_TRUE(program.ends());
        EXPECT_EQ(program.exitStatus(), signal == SIGTERM ? QProcess::NormalExit : QProcess::CrashExit);
    }
}

TEST_F(BridgeProgram, SaysThatThereIsNoScreen)
{
    for (const char *platform : {"no-such-platform", "linuxfb:fb=/dev/null"}) { // the second starts, without a screen
        qputenv("QT_QPA_PLATFORM", platform);
        Program program(QStringList{"--port", "0"} + m_usual);
        qputenv("QT_QPA_PLATFORM", "offscreen");
        EXPECT_TRUE(program.says("kv-sign-bridge: there is no screen for a window")) << platform;
        EXPECT_TRUE(program.ends());
        EXPECT_EQ(program.exitCode(), 1) << platform;
    }
}

TEST_F(BridgeProgram, TakesTheSocketsOfTheServiceManager)
{
    QTcpServer four;
    QTcpServer six;
    ASSERT_TRUE(four.listen(QHostAddress::LocalHost));
    std::vector<int> sockets{static_cast<int>(four.socketDescriptor())};
    if (six.listen(QHostAddress::LocalHostIPv6, four.serverPort())) // not every machine has it
        sockets.push_back(static_cast<int>(six.socketDescriptor()));
    four.pauseAccepting();
    six.pauseAccepting();
    // Who comes before the program runs is not turned away.
    bridgerun::Talker early(four.serverPort(), kShop);
    Program program(m_usual, sockets);
    EXPECT_EQ(program.port(), four.serverPort());
    EXPECT_EQ(early.open(), "");
}

TEST_F(BridgeProgram, TakesNoSocketThatOthersReach)
{
    QTcpServer any;
    ASSERT_TRUE(any.listen(QHostAddress::AnyIPv4));
    any.pauseAccepting();
    Program program(m_usual, {static_cast<int>(any.socketDescriptor())});
    EXPECT_EQ(program.port(), 0);
    EXPECT_TRUE(program.ends());
    EXPECT_EQ(program.exitCode(), 1);
}

TEST_F(BridgeProgram, TriesTheNextPortOfTheRange)
{
    Program first(m_usual);
    Program second(m_usual);
    const quint16 one = first.port();
    const quint16 other = second.port();
    EXPECT_NE(one, other);
    for (const quint16 port : {one, other}) {
        EXPECT_GE(port, 47631);
        EXPECT_LE(port, 47638);
    }
}

TEST_F(BridgeProgram, ServesItsExamplesAsADemo)
{
    Program program({"--port", "0", "--demo", "--no-browser"});
    const quint16 port = program.port();
    EXPECT_TRUE(program.says("The example pages are at http://127.0.0.1:" + QByteArray::number(port) + "/"));
    const QByteArray host = " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(port) + "\r\n\r\n";
    const auto answerOf = [&](const QByteArray &target) { return answerFrom(port, "GET " + target + host); };
    for (const char *page : {"/", "/delivery-note.html", "/kvsignpad/index.js", "/style.css"})
        EXPECT_TRUE(answerOf(page).startsWith("HTTP/1.1 200 OK\r\n")) << page;
    EXPECT_TRUE(answerOf("/").contains("\r\nX-Frame-Options: DENY\r\n"));
    for (const char *page : {"/../settings.h", "/%2e%2e/", "/kvsignpad", "//etc/passwd", "/kvsignpad/../index.html"})
        EXPECT_TRUE(answerOf(page).startsWith("HTTP/1.1 403 ")) << page;
    // Its own pages need no consent, and the pad is the simulated one.
    bridgerun::Talker page(port, "http://127.0.0.1:" + QByteArray::number(port));
    EXPECT_EQ(page.open(), "");
}

TEST_F(BridgeProgram, WritesReasonsToTheJournalAndNothingOfARequest)
{
    Program program(QStringList{"--port", "0"} + m_usual);
    const quint16 port = program.port();
    bridgerun::Talker foreign(port, "https://secret.example");
    EXPECT_TRUE(foreign.ends());
    bridgerun::Talker client(port, kShop);
    EXPECT_EQ(client.errorOf(R"({"op":"secret","id":1})"), "bad-message");
    EXPECT_TRUE(program.says("refused: foreign origin (1 so far)"));
    ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
    EXPECT_TRUE(program.ends());
    EXPECT_FALSE(program.says("secret"));
    EXPECT_FALSE(program.says("shop.example"));
}

TEST_F(BridgeProgram, SaysWhatIsWrongWithItsCommandLine)
{
    for (const QStringList &arguments : {QStringList{"--allow-origin", "shop.example"}, QStringList{"--port", "70000"},
             QStringList{"page.html"}, QStringList{"--allow-origin", "https://shop.example/path"}}) {
        Program program(arguments);
        EXPECT_TRUE(program.ends());
        EXPECT_EQ(program.exitCode(), 2) << arguments.join(' ').toStdString();
    }
}
