// The list behind the queries: fields, ownership, clocks, and a pad that was never connected.
#include "LogFileUtil.h"
#include "inkpoints.h"
#include "insidepads.h"

#include <cstddef>
#include <cstring>
#include <ctime>
#include <new>
#include <type_traits>

namespace {

class InkPointsInside : public testing::TestWithParam<PadCase>
{
};

INSTANTIATE_TEST_SUITE_P(AllPads, InkPointsInside, testing::ValuesIn(allPads()), padCaseName);

TEST(InkPointRecord, HasItsFieldsInOrderAndOfTheirTypes)
{
    static_assert(std::is_same_v<decltype(_POINTDATA::nX), int16_t>);
    static_assert(std::is_same_v<decltype(_POINTDATA::nY), int16_t>);
    static_assert(std::is_same_v<decltype(_POINTDATA::nPressureValue), int16_t>);
    static_assert(std::is_same_v<decltype(_POINTDATA::bStrokeEnd), bool>);
    static_assert(std::is_same_v<decltype(_POINTDATA::ulTickCount), uint64_t>);
    static_assert(std::is_same_v<decltype(_POINTDATA::pointTime), time_t>);
    const size_t offsets[] = {offsetof(_POINTDATA, nX), offsetof(_POINTDATA, nY), offsetof(_POINTDATA, nPressureValue),
        offsetof(_POINTDATA, bStrokeEnd), offsetof(_POINTDATA, ulTickCount), offsetof(_POINTDATA, pointTime)};
    const size_t expected[] = {0, 2, 4, 6, 8, 16};
    EXPECT_TRUE(std::equal(std::begin(offsets), std::end(offsets), expected));
}

/// The ink record hands out the bytes as they are in memory.
TEST(InkPointRecord, IsZeroWhereItHasNoField)
{
    alignas(_POINTDATA) unsigned char bytes[sizeof(_POINTDATA)];
    std::memset(bytes, 0xaa, sizeof bytes);
    new (bytes) _POINTDATA(inkpoints::pointNow(1, 2, 3, true));
    EXPECT_EQ(bytes[offsetof(_POINTDATA, bStrokeEnd)], 1);
    EXPECT_EQ(bytes[offsetof(_POINTDATA, bStrokeEnd) + 1], 0);
}

TEST_P(InkPointsInside, CarryTheTickAndTheSecondOfTheirStoring)
{
    OpenPad pad(GetParam());
    const auto now = [] {
        timespec clock{};
        clock_gettime(CLOCK_MONOTONIC, &clock);
        return static_cast<uint64_t>(clock.tv_sec) * 1000 + static_cast<uint64_t>(clock.tv_nsec) / 1000000;
    };
    const uint64_t tickBefore = now();
    const time_t timeBefore = std::time(nullptr);
    pad.driver.send({{1000, 900, 5, 0}});
    const timespec pause{0, 30'000'000};
    nanosleep(&pause, nullptr);
    const uint64_t tickBetween = now();
    pad.driver.send({{1000, 900, 5, 2}});
    withOpenInstance(GetParam(), [&](auto &instance) {
        const std::vector<_POINTDATA> &points = *instance.m_pPointDataList;
        ASSERT_EQ(points.size(), 2u);
        EXPECT_GE(points[0].ulTickCount, tickBefore);
        EXPECT_LT(points[0].ulTickCount, tickBetween);
        EXPECT_GE(points[1].ulTickCount, tickBetween);
        EXPECT_LE(points[1].ulTickCount, now());
        for (const _POINTDATA &point : points) {
            // time() may lag behind the precise clock by a timer tick.
            EXPECT_GE(point.pointTime, timeBefore);
            EXPECT_LE(point.pointTime, std::time(nullptr));
        }
    });
}

TEST_P(InkPointsInside, ThatCloseAStrokeHaveATickAndASecondOfTheirOwn)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 900, 5, 0}});
    withOpenInstance(GetParam(), [&](auto &instance) {
        std::vector<_POINTDATA> &points = *instance.m_pPointDataList;
        points.at(0).ulTickCount = 7;
        points.at(0).pointTime = 8;
        pad.driver.send({{1, 2, 3, 2}});
        ASSERT_EQ(points.size(), 2u);
        EXPECT_TRUE(points[1].bStrokeEnd);
        EXPECT_GT(points[1].ulTickCount, 7u);
        EXPECT_GT(points[1].pointTime, 8);
    });
}

TEST_P(InkPointsInside, AreGivenBackByAClearAndTheListStays)
{
    OpenPad pad(GetParam());
    withOpenInstance(GetParam(), [&](auto &instance) {
        ASSERT_NE(instance.m_pPointDataList, nullptr);
        ASSERT_NE(instance.m_pDecodedPointDataList, nullptr);
        EXPECT_NE(instance.m_pPointDataList, instance.m_pDecodedPointDataList);
        for (int i = 0; i < 100; ++i)
            pad.driver.send(1000, 900, 5, 0);
        instance.m_pDecodedPointDataList->resize(3);
        EXPECT_GE(instance.m_pPointDataList->capacity(), 100u);
        const auto *list = instance.m_pPointDataList;
        instance.ClearDeviceContent();
        EXPECT_EQ(instance.m_pPointDataList, list);
        EXPECT_EQ(list->size(), 0u);
        EXPECT_EQ(list->capacity(), 0u);
        EXPECT_EQ(instance.m_pDecodedPointDataList->size(), 3u);
        instance.Shutdown();
        EXPECT_EQ(instance.m_pPointDataList, nullptr);
        EXPECT_EQ(instance.m_pDecodedPointDataList, nullptr);
        EXPECT_EQ(instance.GetTotalInkPointsNumber(), -8);
    });
}

// Makes an instance that has never seen a pad, and ends it.
template <class Pad>
void expectNothingStored(Pad &&pad)
{
    EXPECT_EQ(pad.m_pPointDataList, nullptr);
    EXPECT_EQ(pad.m_pDecodedPointDataList, nullptr);
    EXPECT_EQ(pad.GetTotalInkPointsNumber(), -8);
    _INKPOINTDATA point{0, 1, 2, 3, true};
    EXPECT_EQ(pad.GetInkPointData(point), -1);
    EXPECT_TRUE(point.nX == 1 && point.nY == 2 && point.nPressureValue == 3 && point.bStrokeEnd);
    EXPECT_EQ(pad.GetInkPointDataTimeInfo(0), nullptr);
    pad.FreeInkPointDataTimeInfo(nullptr);
    pad.Shutdown();
}

TEST(InkPointsOfAnUnconnectedPad, AreNone)
{
    expectNothingStored(CS210SignWidget(nullptr));
    expectNothingStored(CS210SignObj(10, 10));
    expectNothingStored(CS300SignWidget(nullptr));
    expectNothingStored(CS300SignObj(10, 10));
    expectNothingStored(CS310XSignWidget(nullptr));
    expectNothingStored(CS310XSignObj(10, 10));
    expectNothingStored(CR800SignWidget(nullptr));
    expectNothingStored(CR800SignObj(10, 10));
    expectNothingStored(CM450SignWidget(nullptr));
    expectNothingStored(CM450SignObj(10, 10));
}

} // namespace
