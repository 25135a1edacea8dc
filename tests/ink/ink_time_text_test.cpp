// A point's time as text: local time by the process's zone, thousandths from the tick.
#include "insidepads.h"

#include <cstdlib>
#include <ctime>

namespace {

struct Moment
{
    const char *zone;
    long long seconds; ///< since the epoch
    unsigned long long tick;
    const char *text;
};

// Worked out by hand: 1709647629 is 14:07:09 UTC on 5 March 2024, 1719835629 is 12:07:09 UTC on 1 July 2024.
const Moment kMoments[] = {
    {"UTC0", 1709647629, 123456789, "2024-03-05 14:07:09.789"},
    {"UTC0", 1709647629, 1000, "2024-03-05 14:07:09.000"},
    {"UTC0", 1709647629, 7, "2024-03-05 14:07:09.007"},
    {"UTC0", 1709647629, 18446744073709551615u, "2024-03-05 14:07:09.615"},
    {"UTC0", 0, 0, "1970-01-01 00:00:00.000"},
    {"UTC0", -1, 999, "1969-12-31 23:59:59.999"},
    {"UTC0", 1709251199, 50, "2024-02-29 23:59:59.050"},
    {"UTC0", 4294967296, 1, "2106-02-07 06:28:16.001"},
    {"<+0545>-5:45", 1709647629, 60, "2024-03-05 19:52:09.060"},
    {"<-1130>+11:30", 1709647629, 60, "2024-03-05 02:37:09.060"},
    {"CET-1CEST,M3.5.0,M10.5.0/3", 1709647629, 60, "2024-03-05 15:07:09.060"},
    {"CET-1CEST,M3.5.0,M10.5.0/3", 1719835629, 60, "2024-07-01 14:07:09.060"},
};

class InkTimeText : public testing::TestWithParam<PadCase>
{
protected:
    ~InkTimeText() override
    {
        unsetenv("TZ");
        tzset();
    }
};

INSTANTIATE_TEST_SUITE_P(AllPads, InkTimeText, testing::ValuesIn(allPads()), padCaseName);

TEST_P(InkTimeText, IsTheLocalTimeWithTheTicksThousandths)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 900, 5, 0}, {1000, 900, 5, 2}});
    for (const Moment &moment : kMoments) {
        withOpenInstance(GetParam(), [&](auto &instance) {
            instance.m_pPointDataList->at(1).pointTime = moment.seconds;
            instance.m_pPointDataList->at(1).ulTickCount = moment.tick;
        });
        // The zone is looked at anew with each text, as the C library's localtime does.
        setenv("TZ", moment.zone, 1);
        char *text = pad->GetInkPointDataTimeInfo(pad.type(), 1);
        EXPECT_STREQ(text, moment.text) << moment.zone;
        for (size_t i = std::char_traits<char>::length(text); i < 100; ++i)
            EXPECT_EQ(text[i], '\0') << "byte " << i;
        pad->FreeInkPointDataTimeInfo(pad.type(), text);
    }
}

TEST_P(InkTimeText, OfATimeBeyondTheCalendarIsStillAText)
{
    OpenPad pad(GetParam());
    pad.driver.send({{1000, 900, 5, 0}});
    for (const time_t beyond : {INT64_MAX, INT64_MIN, int64_t{253402300800}}) {
        withOpenInstance(GetParam(), [&](auto &instance) { instance.m_pPointDataList->at(0).pointTime = beyond; });
        char *text = pad->GetInkPointDataTimeInfo(pad.type(), 0);
        ASSERT_NE(text, nullptr);
        EXPECT_LT(std::char_traits<char>::length(text), 100u);
        pad->FreeInkPointDataTimeInfo(pad.type(), text);
    }
}

} // namespace
