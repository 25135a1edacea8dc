// Whose process is at the other end.
#include "peeruser.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

// Of proc(5), with a connection from 127.0.0.1:43210 (A8CA) to port 9001 (2329), seen from both ends.
const QByteArray kFour =
    "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n"
    "   0: 0100007F:2329 00000000:0000 0A 00000000:00000000 00:00000000 00000000  1000        0 111 1 0 100 0 0 10 0\n"
    "   1: 0100007F:2329 0100007F:A8CA 01 00000000:00000000 00:00000000 00000000  1000        0 112 1 0 20 4 30 10 -1\n"
    "   2: 0100007F:A8CA 0100007F:2329 01 00000000:00000000 00:00000000 00000000  1001        0 113 1 0 20 4 30 10 -1\n";

const QByteArray kSix =
    "  sl  local_address                         remote_address                        st tx_queue rx_queue tr uid\n"
    "   0: 00000000000000000000000001000000:A8CA 00000000000000000000000001000000:2329 01 00000000:00000000 "
    "00:00000000 00000000  1002        0 114 1 0 20 4 30 10 -1\n";

} // namespace

TEST(BridgePeer, TheTableTellsTheOwnerOfTheOtherEnd)
{
    EXPECT_EQ(bridge::ownerIn(kFour, QHostAddress::LocalHost, 43210, 9001), uid_t{1001});
    EXPECT_EQ(bridge::ownerIn(kSix, QHostAddress::LocalHostIPv6, 43210, 9001), uid_t{1002});
    EXPECT_EQ(bridge::ownerIn(kFour, QHostAddress::LocalHost, 43211, 9001), std::nullopt);
    EXPECT_EQ(bridge::ownerIn(kFour, QHostAddress::LocalHost, 43210, 9002), std::nullopt);
    EXPECT_EQ(bridge::ownerIn({}, QHostAddress::LocalHost, 43210, 9001), std::nullopt);
    EXPECT_EQ(
        bridge::ownerIn(QByteArray(kFour).replace("1001", "x"), QHostAddress::LocalHost, 43210, 9001), std::nullopt);
}

TEST(BridgePeer, AConnectionOfThisProcessIsOurs)
{
    for (const QHostAddress::SpecialAddress address : {QHostAddress::LocalHost, QHostAddress::LocalHostIPv6}) {
        QTcpServer server;
        if (!server.listen(address)) {
            EXPECT_EQ(address, QHostAddress::LocalHostIPv6); // a machine may have no IPv6
            continue;
        }
        QTcpSocket socket;
        socket.connectToHost(server.serverAddress(), server.serverPort());
        ASSERT_TRUE(socket.waitForConnected());
        EXPECT_EQ(bridge::ownerOf(socket.localAddress(), socket.localPort(), server.serverPort()), geteuid());
    }
}
