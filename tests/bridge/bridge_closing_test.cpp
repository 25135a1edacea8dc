// How a connection ends: the code and the reason arrive, whatever the client is sending meanwhile.
#include "bridgerun.h"

using bridge::Refusal;
using bridgerun::until;

namespace {

/// A client's frame whose mask is zero, so that its bytes are the content.
/// @param kind with kFirst where further frames belong to the message
QByteArray frame(quint8 kind, const QByteArray &content)
{
    QByteArray head(1, static_cast<char>(0x80U ^ kind));
    if (content.size() < 126) {
        head += static_cast<char>(0x80 | content.size());
    } else if (content.size() < 65536) {
        head += '\xfe';
        head += static_cast<char>(content.size() >> 8);
        head += static_cast<char>(content.size() & 255);
    } else {
        QByteArray length(8, 0);
        qToBigEndian(static_cast<quint64>(content.size()), length.data());
        head += '\xff' + length;
    }
    return head + QByteArray(4, 0) + content;
}

constexpr quint8 kFirst = 0x80;
constexpr quint8 kGoesOn = 0;
constexpr quint8 kText = 1;
constexpr quint8 kBinary = 2;
constexpr quint8 kPing = 9;

/// A client that speaks in bytes.
class RawClient
{
public:
    explicit RawClient(quint16 port)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        m_socket.write("GET / HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(port)
            + "\r\nOrigin: https://shop.example\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n"
              "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
              "Sec-WebSocket-Protocol: kvsign.v1\r\n\r\n");
    }

    QTcpSocket &socket() { return m_socket; }
    bool hears(const QByteArray &text)
    {
        return until([&] { return (m_heard += m_socket.readAll()).contains(text) || hasEnded(); })
            && m_heard.contains(text);
    }
    bool hasEnded() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }

    /// Sends it again and again, more than fits into what the system keeps for a connection, until it is shown out.
    /// @return the content of the frame that closed the connection: the code and the reason
    QByteArray closedBy(const QByteArray &bytes)
    {
        EXPECT_TRUE(hears("\"welcome\""));
        m_heard.clear();
        QByteArray closing;
        EXPECT_TRUE(until([&] {
            m_heard += m_socket.readAll();
            if (m_socket.bytesToWrite() < bytes.size() && !hasEnded())
                m_socket.write(bytes);
            closing = closingIn(m_heard);
            return !closing.isEmpty() || hasEnded();
        }));
        m_heard += m_socket.readAll();
        return closingIn(m_heard);
    }

private:
    /// Of the bridge's frames, which have no mask.
    static QByteArray closingIn(const QByteArray &bytes)
    {
        for (int at = 0; at + 2 <= bytes.size();) {
            const int kind = bytes.at(at) & 15;
            int length = bytes.at(at + 1) & 127;
            at += 2;
            if (length == 126 && at + 2 <= bytes.size()) {
                length = qFromBigEndian<quint16>(bytes.constData() + at);
                at += 2;
            }
            if (kind == 8)
                return bytes.mid(at, length);
            at += length;
        }
        return {};
    }

    QTcpSocket m_socket;
    QByteArray m_heard;
};

QByteArray codeAndReason(int code, const QByteArray &reason)
{
    QByteArray content(2, 0);
    qToBigEndian(static_cast<quint16>(code), content.data());
    return content + reason;
}

using BridgeClosing = BridgeTest;

} // namespace

TEST_F(BridgeClosing, WhoIsShownOutHearsWhy)
{
    start();
    struct Row
    {
        const char *what;
        QByteArray bytes;
        int code;
        const char *reason;
        Refusal refusal;
    };
    QByteArray flood;
    for (int i = 0; i < 1000; ++i)
        flood += frame(kText, R"({"op":"clear","id":1})");
    const Row rows[] = {
        {"a flood", flood, 1008, "too many messages", Refusal::Flood},
        {"binary messages", frame(kBinary, QByteArray(60000, 'x')), 1003, "binary message", Refusal::BinaryMessage},
    };
    for (const Row &row : rows) {
        RawClient client(running->port());
        EXPECT_EQ(client.closedBy(row.bytes), codeAndReason(row.code, row.reason)) << row.what;
        EXPECT_EQ(refused(row.refusal), 1) << row.what;
        EXPECT_TRUE(until([&] { return client.hasEnded(); })) << row.what;
        EXPECT_EQ(client.socket().error(), QAbstractSocket::RemoteHostClosedError) << row.what;
    }
    RawClient large(running->port());
    EXPECT_EQ(large.closedBy(frame(kText, QByteArray(4 * 1024 * 1024, ' '))).left(2), codeAndReason(1009, ""));
    EXPECT_EQ(refused(Refusal::LargeMessage), 1);
}

TEST_F(BridgeClosing, AMessageInPiecesIsOne)
{
    start();
    RawClient client(running->port());
    ASSERT_TRUE(client.hears("\"welcome\""));
    QByteArray pieces = frame(kFirst | kText, R"({"op":"cle)");
    for (int i = 0; i < 1000; ++i)
        pieces += frame(kFirst | kGoesOn, "");
    client.socket().write(pieces + frame(kPing, "between") + frame(kGoesOn, R"(ar","id":7})"));
    EXPECT_TRUE(client.hears(R"("id":7)"));
    EXPECT_TRUE(client.hears("between")) << "the answer to the ping";
}

TEST_F(BridgeClosing, WhatIsNoMessageEndsTheConnection)
{
    start();
    const QByteArray half(50000, ' ');
    const struct
    {
        const char *what;
        QByteArray bytes;
        int code; // of RFC 6455
    } rows[] = {
        {"pieces that are too large together", frame(kFirst | kText, half) + frame(kGoesOn, half), 1009},
        {"a piece without a beginning", frame(kGoesOn, "{}"), 1002},
        {"a message in another", frame(kFirst | kText, "{") + frame(kText, "{}"), 1002},
        {"a kind that there is not", frame(3, "{}"), 1002},
        {"a ping in pieces", frame(kFirst | kPing, "x"), 1002},
        {"a large ping", frame(kPing, QByteArray(126, 'x')), 1002},
        {"a reserved bit", QByteArray("\xc1\x80\0\0\0\0", 6), 1002},
        {"a length with zeros before it", QByteArray("\x81\xfe\0\x02\0\0\0\0{}", 10), 1002},
        {"a length beyond all", QByteArray("\x81\xff\xff\xff\xff\xff\xff\xff\xff\xff\0\0\0\0", 14), 1002},
        {"no UTF-8", frame(kText, "{\"op\":\"\xff\"}"), 1007},
    };
    for (const auto &row : rows) {
        RawClient client(running->port());
        EXPECT_EQ(client.closedBy(row.bytes).left(2), codeAndReason(row.code, "")) << row.what;
        EXPECT_TRUE(until([&] { return client.hasEnded(); })) << row.what;
    }
    EXPECT_TRUE(until([this] { return running->conversations() == 0; }));
    EXPECT_EQ(page()->next("event")["event"], "welcome");
}

TEST_F(BridgeClosing, WhoGoesOnAfterItIsNotWaitedFor)
{
    start();
    RawClient client(running->port());
    ASSERT_TRUE(client.hears("\"welcome\""));
    client.socket().setReadBufferSize(1); // so that it sees no end, and neither answers nor closes
    client.socket().write(frame(kBinary, "{}"));
    EXPECT_TRUE(until([this] { return running->conversations() == 0; }));
    EXPECT_EQ(refused(Refusal::BinaryMessage), 1);
}

TEST_F(BridgeClosing, WhoIsAnsweredAndReadsNothingEndsBeforeTheMemoryDoes)
{
    door.unsentBytes = 64 * 1024;
    talk.pingMs = talk.stalledMs = 3600 * 1000;
    start();
    RawClient client(running->port());
    ASSERT_TRUE(client.hears("\"welcome\""));
    QByteArray pings;
    for (int i = 0; i < 8000; ++i)
        pings += frame(kPing, QByteArray(125, 'x'));
    // The bridge answers each, and what the system keeps for the two ends is full sometime.
    client.socket().setReadBufferSize(1);
    EXPECT_TRUE(until([&] {
        if (client.socket().bytesToWrite() < pings.size() && !client.hasEnded())
            client.socket().write(pings);
        return refused(Refusal::Stalled) == 1;
    }));
    EXPECT_TRUE(until([this] { return running->conversations() == 0; }));
    EXPECT_EQ(page()->next("event")["event"], "welcome");
}

TEST_F(BridgeClosing, WhoTakesNothingForLongIsShownOut)
{
    talk.stalledMs = 500;
    talk.pingMs = 3600 * 1000;
    setenv("KVSIM_RECORDING", "signature", 1);
    start();
    RawClient client(running->port());
    ASSERT_TRUE(client.hears("\"welcome\""));
    client.socket().write(frame(kText, R"({"op":"open","id":1,"model":"S300","width":2000,"height":2000})"));
    ASSERT_TRUE(client.hears("\"tap\""));
    client.socket().setReadBufferSize(1);
    for (int i = 0; i < 4; ++i)
        client.socket().write(frame(kText, R"({"op":"image","id":2,"kind":"bmp"})"));
    EXPECT_TRUE(until([this] { return refused(Refusal::Stalled) == 1; }));
    EXPECT_TRUE(until([this] { return running->conversations() == 0; }));
}

TEST_F(BridgeClosing, TheEndOfTheBridgeIsTold)
{
    start();
    RawClient client(running->port());
    ASSERT_TRUE(client.hears("\"welcome\""));
    running.reset();
    EXPECT_TRUE(client.hears(codeAndReason(1001, "")));
}
