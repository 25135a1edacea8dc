// How a pad that is gone is told apart from one that is only busy, and when the pad need not be asked at all.
#include "padpresence.h"

#include <gtest/gtest.h>

#include <deque>
#include <thread>

namespace {

using std::chrono::milliseconds;

/// Gives the answers that it was told to give; after those it always says that it is there.
struct Pad
{
    std::deque<bool> told;
    int questions = 0;
    milliseconds slowness{0};

    bool answer()
    {
        ++questions;
        std::this_thread::sleep_for(slowness);
        if (told.empty())
            return true;
        const bool answer = told.front();
        told.pop_front();
        return answer;
    }
};

class PresenceOfAPad : public testing::Test
{
protected:
    Pad pad;
    PadPresence presence{[this] { return pad.answer(); }};
};

TEST_F(PresenceOfAPad, OneFailureIsAnAnswerOfABusyPad)
{
    pad.told = {false, true, false, true, false};
    for (int i = 0; i < 6; ++i) {
        presence.look(0);
        EXPECT_FALSE(presence.isAway()) << i;
    }
    EXPECT_EQ(pad.questions, 6);
}

TEST_F(PresenceOfAPad, TwoInARowAreAPadThatIsAway)
{
    pad.told = {false, false, false, true};
    presence.look(7);
    EXPECT_FALSE(presence.isAway()) << "it has sent";
    presence.look(7);
    EXPECT_FALSE(presence.isAway());
    EXPECT_LT(presence.pause(), milliseconds(1000)) << "the second question comes soon";
    presence.look(7);
    EXPECT_TRUE(presence.isAway());
    presence.look(7);
    EXPECT_TRUE(presence.isAway());
    presence.look(7);
    EXPECT_FALSE(presence.isAway()) << "it answers again";
}

TEST_F(PresenceOfAPad, APadThatSendsIsNotAsked)
{
    for (int points = 1; points < 50; ++points)
        presence.look(points);
    EXPECT_EQ(pad.questions, 0);
    presence.look(0); // a clear removed the points, so nothing new has come
    EXPECT_EQ(pad.questions, 1);
    presence.look(1);
    EXPECT_EQ(pad.questions, 1);
}

TEST_F(PresenceOfAPad, APadThatSendsIsBack)
{
    pad.told = {false, false, false};
    presence.look(0);
    presence.look(0);
    ASSERT_TRUE(presence.isAway());
    presence.look(1);
    EXPECT_FALSE(presence.isAway());
    presence.look(1);
    EXPECT_FALSE(presence.isAway()) << "failures from before do not count";
}

TEST_F(PresenceOfAPad, AQuestionAtOnceIsAskedTwice)
{
    pad.told = {false, true};
    presence.ask();
    EXPECT_FALSE(presence.isAway());
    pad.told = {false, false};
    presence.ask();
    EXPECT_TRUE(presence.isAway());
    pad.told = {false};
    presence.ask();
    EXPECT_TRUE(presence.isAway());
    EXPECT_EQ(pad.questions, 5) << "and once where the ones before failed too";
    presence.ask();
    EXPECT_FALSE(presence.isAway());
}

TEST_F(PresenceOfAPad, ASlowPadIsAskedLessOften)
{
    pad.slowness = milliseconds(300);
    presence.look(0);
    EXPECT_GE(presence.pause(), milliseconds(2700));
}

} // namespace
