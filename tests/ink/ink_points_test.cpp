// The stored points as the caller reads them.
#include "logmessages.h"
#include "openpad.h"

#include <cstring>

namespace {

struct Point
{
    int16_t x;
    int16_t y;
    int16_t pressure;
    bool strokeEnd;

    bool operator==(const Point &other) const
    {
        return x == other.x && y == other.y && pressure == other.pressure && strokeEnd == other.strokeEnd;
    }
};

void PrintTo(const Point &point, std::ostream *out)
{
    *out << "(" << point.x << ", " << point.y << ", " << point.pressure << (point.strokeEnd ? ", end)" : ")");
}

class InkPoints : public testing::TestWithParam<PadCase>
{
protected:
    InkPoints()
        : pad(GetParam())
    {
    }

    std::vector<Point> stored() const
    {
        std::vector<Point> points;
        const int count = pad->GetTotalInkPointsNumber(pad.type());
        for (int i = 0; i < count; ++i) {
            INKPOINTDATA point{i, 0, 0, 0, false};
            EXPECT_EQ(pad->GetInkPointData(pad.type(), point), ARI_SUCCESS);
            EXPECT_EQ(point.nIndex, i);
            points.push_back({point.nX, point.nY, point.nPressureValue, point.bStrokeEnd});
        }
        return points;
    }

    std::string key(const char *function) const { return GetParam().className() + std::string("::") + function; }

    OpenPad pad;
};

INSTANTIATE_TEST_SUITE_P(AllPads, InkPoints, testing::ValuesIn(allPads()), padCaseName);

TEST_P(InkPoints, AreThePacketsInOrderAndACopyOfTheLastClosesAStroke)
{
    pad.driver.send({{1000, 900, 0, 0}, {1001, 901, 10, 1}, {1002, 902, 20, 1}, {1003, 903, 30, 1}, {1, 2, 3, 2}});
    pad.driver.send({{9, 8, 7, 1}, {9, 8, 7, 2}, {500, 600, 70, 0}, {4, 5, 6, 2}});
    EXPECT_EQ(stored(),
        (std::vector<Point>{{1000, 900, 0, false}, {1001, 901, 10, false}, {1002, 902, 20, false},
            {1003, 903, 30, false}, {1003, 903, 30, true}, {500, 600, 70, false}, {500, 600, 70, true}}));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 7);
}

TEST_P(InkPoints, KeepTheLow16BitsOfWideValues)
{
    // 70000 - 65536, -40000 + 65536, 32768 - 65536, INT_MAX and INT_MIN: all ones and all zeros in the low half.
    pad.driver.send({{70000, -40000, 32768, 0}, {2147483647, -2147483647 - 1, -1, 1}, {65536, 65535, -32769, 1}});
    EXPECT_EQ(stored(), (std::vector<Point>{{4464, 25536, -32768, false}, {-1, 0, -1, false}, {0, -1, 32767, false}}));
}

TEST_P(InkPoints, AreCountedAsEmptyBeforeAndAfterAndNeverAsZero)
{
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), -8);
    pad.driver.send({{1000, 900, 5, 0}, {1000, 900, 5, 2}});
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 2);
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), -8);
    pad.driver.send({{1000, 900, 5, 2}});
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), -8);
}

TEST_P(InkPoints, OutOfRangeAreRefusedAndTheRecordStaysAsItWas)
{
    const auto expectRefused = [&](int index) {
        INKPOINTDATA point{index, 11, 22, 33, true};
        EXPECT_EQ(pad->GetInkPointData(pad.type(), point), -1) << index;
        EXPECT_EQ(point.nIndex, index);
        EXPECT_TRUE(point.nX == 11 && point.nY == 22 && point.nPressureValue == 33 && point.bStrokeEnd) << index;
        EXPECT_EQ(pad->GetInkPointDataTimeInfo(pad.type(), index), nullptr) << index;
    };
    expectRefused(0);
    pad.driver.send({{1000, 900, 5, 0}, {1001, 900, 5, 1}});
    for (const int index : {2, 3, -1, -2147483647 - 1, 2147483647})
        expectRefused(index);
    INKPOINTDATA last{1, 0, 0, 0, true};
    EXPECT_EQ(pad->GetInkPointData(pad.type(), last), 0);
    EXPECT_FALSE(last.bStrokeEnd);
}

TEST_P(InkPoints, HaveATimeTextThatTheCallerGivesBack)
{
    pad.driver.send({{1000, 900, 5, 0}});
    char *text = pad->GetInkPointDataTimeInfo(pad.type(), 0);
    ASSERT_NE(text, nullptr);
    int fields[7];
    char rest = 0;
    EXPECT_EQ(std::sscanf(text, "%4d-%2d-%2d %2d:%2d:%2d.%3d%c", &fields[0], &fields[1], &fields[2], &fields[3],
                  &fields[4], &fields[5], &fields[6], &rest),
        7)
        << text;
    EXPECT_EQ(std::strlen(text), std::strlen("2024-03-05 14:07:09.789"));
    char *again = pad->GetInkPointDataTimeInfo(pad.type(), 0);
    EXPECT_NE(again, text);
    EXPECT_STREQ(again, text);
    pad->FreeInkPointDataTimeInfo(pad.type(), text);
    pad->FreeInkPointDataTimeInfo(pad.type(), again);
    pad->FreeInkPointDataTimeInfo(pad.type(), nullptr);
}

TEST_P(InkPoints, OfThousandsOfStrokesAreAllThere)
{
    std::vector<KVSIM_PACKET> packets;
    for (int i = 0; i < 3000; ++i) {
        packets.push_back({i, 900, 1, 0});
        packets.push_back({i, 901, 1, 2});
    }
    pad.driver.send(packets);
    const std::vector<Point> points = stored();
    ASSERT_EQ(points.size(), 6000u);
    for (int i = 0; i < 6000; ++i)
        ASSERT_EQ(points[static_cast<size_t>(i)], (Point{static_cast<int16_t>(i / 2), 900, 1, i % 2 == 1}));
}

TEST_P(InkPoints, WriteTheLogLinesOfTheirQueries)
{
    pad.driver.send({{1000, 900, 5, 0}, {1000, 900, 5, 2}});
    const LogTail log;
    char *text = nullptr;
    {
        const LogOn logOn;
        pad->GetTotalInkPointsNumber(pad.type());
        pad->GetInkPointData(pad.type(), INKPOINTDATA{1, 0, 0, 0, false});
        pad->GetInkPointData(pad.type(), INKPOINTDATA{2, 0, 0, 0, false});
        text = pad->GetInkPointDataTimeInfo(pad.type(), 1);
        pad->GetInkPointDataTimeInfo(pad.type(), 7);
        pad->FreeInkPointDataTimeInfo(pad.type(), nullptr);
        pad->FreeInkPointDataTimeInfo(pad.type(), text);
    }
    const bool ownKey = GetParam().className() == std::string("CR800SignWidget")
        || GetParam().className() == std::string("CM450SignWidget");
    const Lines leave{"<%ld>-leave with nInkCount=2"};
    EXPECT_EQ(messagesOf(log, key("SetSignPadEventCallback()")), ownKey ? Lines{} : leave);
    EXPECT_EQ(messagesOf(log, key("GetTotalInkPointsNumber()")).size(), ownKey ? 2u : 1u);
    EXPECT_EQ(messagesOf(log, key("GetTotalInkPointsNumber()")).back(), ownKey ? leave[0] : "<%ld>-enter...");

    const Lines got = messagesOf(log, key("GetInkPointData()"));
    ASSERT_EQ(got.size(), 4u);
    EXPECT_EQ(got[1], "<%ld>-leave with nResult=0");
    EXPECT_EQ(got[3], "<%ld>-leave with nResult=-1");

    const std::string address = QString::asprintf("%lx", reinterpret_cast<unsigned long>(text)).toStdString();
    EXPECT_EQ(messagesOf(log, key("GetInkPointDataTimeInfo()")),
        (Lines{"<%ld>-enter, nIndex=1", "<%ld>-leave with pInkPointDataTimeInfo=" + address + " !",
            "<%ld>-enter, nIndex=7", "<%ld>-leave with pInkPointDataTimeInfo=0 !"}));
    EXPECT_EQ(messagesOf(log, key("FreeInkPointDataTimeInfo()")),
        (Lines{"<%ld>-enter, pInkPointDataTimeInfo=0", "<%ld>-leave !", "<%ld>-enter, pInkPointDataTimeInfo=" + address,
            "<%ld>-after call delete[] pInkPointDataTimeInfo !", "<%ld>-leave !"}));
}

} // namespace
