/// @file
/// The virtual pad's packets: even, between the places that were reported, complete however quick the pen was.
#include "packetclock.h"

#include "kvsignpadsdk_global.h"

#include <gtest/gtest.h>

namespace {

using namespace virtualpad;

constexpr std::int64_t kMs = 1000;
constexpr int kDown = KVSPDARI_PS_PEN_DOWN, kMove = KVSPDARI_PS_PEN_MOVE, kUp = KVSPDARI_PS_PEN_UP;

std::vector<int> statuses(const std::vector<DuePacket> &packets)
{
    std::vector<int> found;
    for (const DuePacket &packet : packets)
        found.push_back(packet.status);
    return found;
}

TEST(PacketClock, SendsTwoHundredEvenPacketsASecond)
{
    PacketClock clock;
    clock.down(1000 * kMs, {0, 0, 0.5}, kDown);
    for (int ms = 7; ms < 1000; ms += 7) // a mouse of 143 reports a second
        clock.move((1000 + ms) * kMs, {ms / 1000.0, 0, 0.5});
    clock.up(2000 * kMs, {1, 0, 0.5});
    const std::vector<DuePacket> packets = clock.due(10000 * kMs);
    ASSERT_EQ(packets.size(), 201u);
    EXPECT_EQ(packets.front().status, kDown);
    EXPECT_EQ(packets.back().status, kUp);
    EXPECT_EQ(packets.back().point.pressure, 0);
    for (std::size_t i = 0; i < packets.size(); ++i) {
        EXPECT_EQ(packets[i].timeUs, (1000 + 15 + 5 * static_cast<int>(i)) * kMs);
        if (i > 0 && i + 1 < packets.size()) {
            EXPECT_EQ(packets[i].status, kMove) << i;
            EXPECT_NEAR(packets[i].point.x, 0.005 * static_cast<int>(i), 1e-9) << i;
            EXPECT_NEAR(packets[i].point.pressure, 0.5, 1e-9) << i;
        }
    }
    EXPECT_TRUE(clock.isIdle());
}

TEST(PacketClock, AskedInPiecesItAnswersTheSame)
{
    PacketClock whole, pieces;
    std::vector<DuePacket> gathered;
    for (PacketClock *clock : {&whole, &pieces}) {
        clock->down(103 * kMs, {0.1, 0.2, 0.3}, kDown);
        clock->move(131 * kMs, {0.4, 0.3, 0.9});
        clock->up(163 * kMs, {0.5, 0.3, 0.9});
    }
    for (std::int64_t now = 0; now < 1000 * kMs; now += 1700)
        for (const DuePacket &packet : pieces.due(now)) {
            EXPECT_LE(packet.timeUs, now);
            gathered.push_back(packet);
        }
    const std::vector<DuePacket> expected = whole.due(1000 * kMs);
    ASSERT_EQ(gathered.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(gathered[i].timeUs, expected[i].timeUs);
        EXPECT_EQ(gathered[i].status, expected[i].status);
        EXPECT_EQ(gathered[i].point.x, expected[i].point.x);
    }
}

TEST(PacketClock, APenThatRestsIsReportedOn)
{
    PacketClock clock;
    clock.down(0, {0.3, 0.4, 0.5}, kDown);
    const std::vector<DuePacket> packets = clock.due(1000 * kMs);
    EXPECT_EQ(packets.size(), 198u); // from 15 ms on
    EXPECT_EQ(packets.back().status, kMove);
    EXPECT_EQ(packets.back().point.x, 0.3);
    EXPECT_FALSE(clock.isIdle());
}

TEST(PacketClock, AQuickTouchIsDownAndUp)
{
    PacketClock clock;
    clock.down(100 * kMs, {0.3, 0.4, 0.5}, kDown);
    clock.up(100 * kMs + 1, {0.3, 0.4, 0});
    clock.down(101 * kMs, {0.6, 0.4, 0.5}, kDown);
    clock.up(102 * kMs, {0.6, 0.4, 0});
    EXPECT_EQ(statuses(clock.due(1000 * kMs)), (std::vector<int>{kDown, kUp, kDown, kUp}));
}

TEST(PacketClock, AButtonIsPressedOnceHoweverLongItIsHeld)
{
    PacketClock clock;
    clock.down(100 * kMs, {1.1, 0.4, 0.5}, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    clock.up(900 * kMs, {1.1, 0.4, 0});
    EXPECT_EQ(statuses(clock.due(2000 * kMs)), (std::vector<int>{KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON, kUp}));
}

TEST(PacketClock, NothingComesBetweenStrokes)
{
    PacketClock clock;
    EXPECT_TRUE(clock.due(50 * kMs).empty());
    clock.down(100 * kMs, {0, 0, 0.5}, kDown);
    clock.up(120 * kMs, {0, 0, 0.5});
    EXPECT_EQ(clock.due(500 * kMs).size(), 5u); // at 115, 120, 125, 130, 135
    EXPECT_TRUE(clock.due(900 * kMs).empty());
    clock.down(5000 * kMs, {0, 0, 0.5}, kDown);
    clock.up(5010 * kMs, {0, 0, 0.5});
    const std::vector<DuePacket> later = clock.due(6000 * kMs);
    ASSERT_EQ(later.size(), 3u);
    EXPECT_EQ(later.front().timeUs, 5015 * kMs);
}

TEST(PressureOfSpeed, FallsWithTheSpeedAndStaysInRange)
{
    double last = 1;
    for (const double speed : {0.0, 0.1, 0.5, 1.0, 3.0, 20.0, 1e9}) {
        EXPECT_LT(pressureOfSpeed(speed), last);
        EXPECT_GT(pressureOfSpeed(speed), 0.1);
        last = pressureOfSpeed(speed);
    }
    EXPECT_LT(pressureOfSpeed(0), 0.7);
}

} // namespace
