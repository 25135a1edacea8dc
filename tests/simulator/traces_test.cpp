// Traces, drawn by hand or by a program, become the packets of a pad.
#include "fitting.h"
#include "recording.h"
#include "traces.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

using namespace kvsim;

TEST(Trace, FillsTheWritingAreaButForItsBorder)
{
    std::ifstream file(KV_TEST_DATA "/recordings/square.trace.txt");
    const Trace trace = readTrace(file, "square");
    ASSERT_EQ(trace.about.size(), 2u);
    EXPECT_EQ(trace.about[0].second, "drawn by hand in an editor");
    const std::vector<Event> events = fitIntoPad(trace.samples, *modelOfName("S300"), 0.8, 0.8);
    ASSERT_EQ(events.size(), 5u);
    // 10 by 10 units fill 1300 * 0.8 raw units, 104 for each unit. The middle of the writing area is (1350, 850).
    const Packet expected[] = {
        {830, 330, 512, 0}, {1870, 330, 1024, 1}, {1870, 1370, 2048, 1}, {830, 1370, 0, 1}, {830, 1370, 0, 2}};
    const std::int64_t times[] = {0, 7500, 15000, 15000, 24000};
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i].timeUs, times[i]) << i;
        EXPECT_EQ(events[i].packet.x, expected[i].x) << i;
        EXPECT_EQ(events[i].packet.y, expected[i].y) << i;
        EXPECT_EQ(events[i].packet.pressure, expected[i].pressure) << i;
        EXPECT_EQ(events[i].packet.status, expected[i].status) << i;
    }
}

TEST(Trace, OthersAreRefused)
{
    for (const auto &[text, message] : {std::pair{"", "t:1: no samples"}, {"# a: b\n", "t:1: no samples"},
             {"0 1 2 3\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 2 3 0 0\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 nan 3 0\n", "t:1: a sample is: milliseconds x y pressure pen"},
             {"0 1 2 3 3\n", "t:1: the pen is 0 (down), 1 (moves) or 2 (up)"},
             {"0 1 2 -3 0\n", "t:1: the pressure is negative"},
             {"5 1 2 3 0\n4 1 2 3 1\n", "t:2: the time goes backwards"}}) {
        std::istringstream in(text);
        try {
            readTrace(in, "t");
            ADD_FAILURE() << "accepted: " << text;
        } catch (const RecordingError &error) {
            EXPECT_STREQ(error.what(), message);
        }
    }
}

} // namespace
