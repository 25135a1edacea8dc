// The port on loopback: what is answered before anybody talks, and who is shown out.
#include "bridgerun.h"

#include <QProcess>

using bridge::Refusal;
using bridgerun::until;

namespace {

const QByteArray kForbidden = "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";

using BridgeDoor = BridgeTest;

} // namespace

TEST_F(BridgeDoor, SaysHello)
{
    start();
    const QByteArray answer =
        answerTo("GET /hello HTTP/1.1\r\nHost: localhost:" + QByteArray::number(running->port()) + "\r\n\r\n");
    EXPECT_TRUE(answer.startsWith("HTTP/1.1 200 OK\r\n")) << answer.constData();
    const QJsonObject hello = QJsonDocument::fromJson(answer.mid(answer.indexOf("\r\n\r\n") + 4)).object();
    EXPECT_EQ(hello["product"].toString(), "kv-sign-bridge");
    EXPECT_EQ(hello["version"].toString(), KV_BRIDGE_VERSION);
    EXPECT_EQ(hello["protocol"].toInt(), 1);
    EXPECT_FALSE(answer.contains("Access-Control"));
}

TEST_F(BridgeDoor, SaysHelloToAListedPageUnderItsName)
{
    start();
    const QByteArray answer = answerTo("GET /hello HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port())
        + "\r\nOrigin: https://shop.example\r\n\r\n");
    EXPECT_TRUE(answer.contains("\r\nAccess-Control-Allow-Origin: https://shop.example\r\n")) << answer.constData();
    EXPECT_FALSE(answer.contains("Private-Network"));
}

TEST_F(BridgeDoor, AnswersEverybodyElseWith403AndNothingElse)
{
    start();
    const QByteArray host = "Host: 127.0.0.1:" + QByteArray::number(running->port()) + "\r\n";
    const QByteArray rest = "Connection: Upgrade\r\nUpgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Protocol: kvsign.v1\r\n\r\n";
    const QByteArray start = "GET / HTTP/1.1\r\n";
    for (const QByteArray &bytes :
        {start + host + rest, start + host + "Origin: null\r\n" + rest,
            start + host + "Origin: https://evil.example\r\n" + rest,
            start + "Host: evil.example\r\nOrigin: https://shop.example\r\n" + rest, QByteArray("\x16\x03\x01\r\n\r\n"),
            QByteArray("GET /hello HTTP/1.1\r\nHost: evil.example\r\n\r\n"), start + host + "\r\n"})
        EXPECT_EQ(answerTo(bytes), kForbidden) << bytes.constData();
    EXPECT_EQ(refused(Refusal::MissingOrigin), 1);
    EXPECT_EQ(refused(Refusal::NullOrigin), 1);
    EXPECT_EQ(refused(Refusal::ForeignOrigin), 1);
    EXPECT_EQ(refused(Refusal::ForeignHost), 2);
    EXPECT_EQ(refused(Refusal::Malformed), 1);
    EXPECT_EQ(refused(Refusal::UnknownPath), 1);
}

TEST_F(BridgeDoor, AnswersOneRequestOfSeveral)
{
    start();
    const QByteArray hello =
        "GET /hello HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port()) + "\r\n\r\n";
    EXPECT_EQ(answerTo(hello + hello + hello).count("HTTP/1.1 "), 1);
    const QByteArray foreign = "GET /hello HTTP/1.1\r\nHost: evil.example\r\n\r\n";
    EXPECT_EQ(answerTo(foreign + hello), kForbidden);
}

TEST_F(BridgeDoor, AHandshakeThatQtDoesNotTakeIsForbiddenToo)
{
    start();
    const QByteArray upgrade = "GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port())
        + "\r\nOrigin: https://shop.example\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
          "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
          "Sec-WebSocket-Protocol: kvsign.v1\r\n";
    QByteArray many;
    for (int i = 0; i < 150; ++i)
        many += "X-" + QByteArray::number(i) + ": x\r\n";
    EXPECT_EQ(answerTo(upgrade + "Cookie: " + QByteArray(9000, 'x') + "\r\n\r\n"), kForbidden);
    EXPECT_EQ(answerTo(upgrade + many + "\r\n"), kForbidden);
    EXPECT_EQ(refused(Refusal::BadUpgrade), 2);
}

TEST_F(BridgeDoor, NamesTheSubprotocolInItsHandshake)
{
    start();
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, running->port());
    socket.write("GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port())
        + "\r\nOrigin: https://shop.example\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
          "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
          "Sec-WebSocket-Protocol: kvsign.v1\r\n\r\n");
    QByteArray head;
    ASSERT_TRUE(until([&] { return (head += socket.readAll()).contains("\r\n\r\n"); }));
    EXPECT_TRUE(head.startsWith("HTTP/1.1 101 ")) << head.constData();
    EXPECT_EQ(head.count("\r\nSec-WebSocket-Protocol: kvsign.v1\r\n"), 1) << head.constData();
    EXPECT_TRUE(head.contains("s3pPLMBiTxaQ9kYGzzhZRbK+xOo=")) << "the example's key of RFC 6455";
}

TEST_F(BridgeDoor, APageOfTheListAndAProgramWithTheTokenAreWelcome)
{
    start();
    const auto shop = page();
    EXPECT_EQ(shop->next("event")["event"], "welcome");
    const auto native = program();
    EXPECT_EQ(native->next("event")["version"], KV_BRIDGE_VERSION);
}

TEST_F(BridgeDoor, TheTokenOfAnotherBridgeOpensNothing)
{
    start();
    bridgerun::Talker stranger(running->port(), "", "kvsign.v1, kvsign.token." + QByteArray(32, 'a'));
    EXPECT_FALSE(stranger.isOpen());
    EXPECT_EQ(refused(Refusal::WrongToken), 1);
}

TEST_F(BridgeDoor, IsOnLoopbackAlone)
{
    start();
    QProcess netstat;
    netstat.start("cat", {"/proc/net/tcp", "/proc/net/tcp6"});
    ASSERT_TRUE(netstat.waitForFinished(60000));
    const QByteArray port = ':' + QByteArray::number(running->port(), 16).rightJustified(4, '0').toUpper();
    int listening = 0;
    for (const QByteArray &line : netstat.readAllStandardOutput().split('\n')) {
        const QList<QByteArray> columns = line.simplified().split(' ');
        if (columns.size() < 4 || columns[3] != "0A" || !columns[1].endsWith(port))
            continue;
        ++listening;
        EXPECT_TRUE(columns[1] == "0100007F" + port || columns[1] == "00000000000000000000000001000000" + port)
            << columns[1].constData();
    }
    EXPECT_GE(listening, 1);
}

TEST_F(BridgeDoor, WhoDoesNotFinishTheHeadIsShownOut)
{
    door.headMs = 300;
    start();
    EXPECT_EQ(answerTo("GET /hello HT"), kForbidden);
    EXPECT_EQ(answerTo(""), kForbidden);
    EXPECT_EQ(refused(Refusal::Slow), 2);
}

TEST_F(BridgeDoor, AHundredSocketsDoNotKeepAnybodyOut)
{
    door.headMs = 1000;
    start();
    std::vector<std::unique_ptr<QTcpSocket>> crowd;
    for (int i = 0; i < 100; ++i) {
        crowd.push_back(std::make_unique<QTcpSocket>());
        crowd.back()->connectToHost(QHostAddress::LocalHost, running->port());
    }
    EXPECT_TRUE(until([&] { return refused(Refusal::TooMany) > 0; }));
    EXPECT_TRUE(until([&] {
        return std::all_of(crowd.begin(), crowd.end(),
            [](const auto &socket) { return socket->state() == QAbstractSocket::UnconnectedState; });
    }));
    EXPECT_EQ(refused(Refusal::TooMany) + refused(Refusal::Slow), 100);
    EXPECT_GE(refused(Refusal::Slow), door.sockets) << "others come in as these go";
    const auto shop = page();
    EXPECT_EQ(shop->next("event")["event"], "welcome");
}

TEST_F(BridgeDoor, WhoHasGoneTakesNoRoom)
{
    start();
    for (int i = 0; i < 2 * door.sockets; ++i) {
        ASSERT_EQ(page()->next("event")["event"], "welcome") << i;
        ASSERT_TRUE(until([this] { return running->conversations() == 0; })) << i;
    }
    EXPECT_EQ(refused(Refusal::TooMany), 0);
}

TEST_F(BridgeDoor, APageThatOpensAHundredSocketsLeavesRoomForTheOthers)
{
    start();
    std::vector<std::unique_ptr<bridgerun::Talker>> crowd;
    for (int i = 0; i < 100; ++i)
        crowd.push_back(page(kShop));
    EXPECT_TRUE(until([&] {
        return std::count_if(crowd.begin(), crowd.end(), [](const auto &each) { return each->hasEnded(); }) == 92;
    }));
    EXPECT_EQ(refused(Refusal::TooMany), 92);
    EXPECT_EQ(page(kBank)->next("event")["event"], "welcome");
}

TEST_F(BridgeDoor, ALargeMessageEndsTheConnection)
{
    start();
    const auto shop = page();
    ASSERT_TRUE(shop->isOpen());
    shop->say(QByteArray(100 * 1024, ' '));
    EXPECT_TRUE(shop->ends());
    EXPECT_EQ(shop->closeCode(), 1009);
    EXPECT_TRUE(until([&] { return running->conversations() == 0; }));
    EXPECT_EQ(refused(Refusal::LargeMessage), 1);
}

TEST_F(BridgeDoor, ABinaryMessageEndsTheConnection)
{
    start();
    const auto shop = page();
    ASSERT_TRUE(shop->isOpen());
    shop->socket().sendBinaryMessage("{}");
    EXPECT_TRUE(shop->ends());
    EXPECT_EQ(shop->closeCode(), 1003);
    EXPECT_EQ(refused(Refusal::BinaryMessage), 1);
}

TEST_F(BridgeDoor, AFloodEndsTheConnection)
{
    start();
    const auto shop = page();
    ASSERT_TRUE(shop->isOpen());
    for (int i = 0; i < 2000; ++i)
        shop->say(R"({"op":"clear","id":1})");
    EXPECT_TRUE(shop->ends());
    EXPECT_EQ(shop->closeCode(), 1008);
    EXPECT_EQ(refused(Refusal::Flood), 1);
    EXPECT_EQ(page()->next("event")["event"], "welcome");
}

TEST_F(BridgeDoor, WhoSaysNothingForLongIsShownOut)
{
    talk.idleMs = 200;
    start();
    const auto shop = page();
    EXPECT_TRUE(shop->isOpen());
    EXPECT_TRUE(shop->ends());
    EXPECT_EQ(shop->closeCode(), 4000);
    EXPECT_EQ(refused(Refusal::Idle), 1);
}

TEST_F(BridgeDoor, WhoDoesNotAnswerIsNotWaitedFor)
{
    talk.pingMs = 200;
    start();
    QTcpSocket deaf;
    deaf.connectToHost(QHostAddress::LocalHost, running->port());
    deaf.write("GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port())
        + "\r\nOrigin: https://shop.example\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
          "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
          "Sec-WebSocket-Protocol: kvsign.v1\r\n\r\n");
    EXPECT_TRUE(until([&] { return refused(Refusal::Stalled) == 1; }));
    EXPECT_TRUE(until([&] { return deaf.state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_TRUE(until([&] { return running->conversations() == 0; }));
}

TEST_F(BridgeDoor, ABadMessageIsAnsweredAndNothingElseHappens)
{
    start();
    const auto shop = page();
    EXPECT_EQ(shop->errorOf(R"({"op":"shutdown","id":3})"), "bad-message");
    EXPECT_EQ(shop->errorOf(R"({"op":"open","id":4,"model":"S300","width":800,"height":452,"driver":"/tmp"})"),
        "bad-message");
    EXPECT_EQ(shop->errorOf(R"({"op":"clear","id":5})"), "not-open");
    EXPECT_EQ(refused(Refusal::BadMessage), 2);
}

TEST_F(BridgeDoor, WhoWasShownOutIsNotHeardAgain)
{
    door.headMs = 300;
    start();
    QTcpSocket slow;
    slow.connectToHost(QHostAddress::LocalHost, running->port());
    slow.write("GET /hello HTTP/1.1\r\n");
    ASSERT_TRUE(until([&] { return refused(Refusal::Slow) == 1; }));
    slow.write("Host: 127.0.0.1:" + QByteArray::number(running->port())
        + "\r\n\r\nGET /hello HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(running->port()) + "\r\n\r\n");
    ASSERT_TRUE(until([&] { return slow.state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_EQ(slow.readAll(), kForbidden);
}

TEST_F(BridgeDoor, WhoAsksForTooManyPicturesIsTold)
{
    talk.pictures = 0;
    start();
    const auto shop = page();
    ASSERT_EQ(shop->open(), "");
    EXPECT_EQ(shop->errorOf(R"({"op":"image","id":2,"kind":"bmp"})"), "too-many");
}

TEST_F(BridgeDoor, NoErrorNamesAPath)
{
    settings.driver = "/not/there";
    start();
    const auto shop = page();
    const QJsonObject answer = shop->ask(R"({"op":"open","id":1,"model":"S300","width":8,"height":8})");
    EXPECT_EQ(answer["error"], "no-driver");
    EXPECT_FALSE(answer["message"].toString().contains('/'));
}
