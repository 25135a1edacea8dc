// What a packet means in each state, for all statuses, pressures and classes; and handling one without a driver.
#include "insidepads.h"
#include "logmessages.h"
#include "paddifferences.h"
#include "penpackets.h"

namespace {

using penpackets::Action;

class PenStates : public testing::TestWithParam<PadCase>
{
};

constexpr int kStatuses[] = {INT_MIN, -256, -2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 255, 256, 257, 65536, INT_MAX};
constexpr int kPressures[] = {
    INT_MIN, -2049, -1, 0, 1, 1023, 1024, 1025, 2047, 2048, 2049, 8191, 8192, 8193, 32768, INT_MAX};

/// The state table with the filter of the class.
Action expectedAction(const PadDifference &difference, bool inStroke, int maximum, int pressure, int status)
{
    const Action idle[] = {Action::StartStroke, Action::None, Action::None, Action::Cancel, Action::Confirm};
    const Action drawing[] = {
        Action::StartStroke, Action::DrawMove, Action::EndStroke, Action::Cancel, Action::Confirm};
    if (static_cast<unsigned>(status) > 4)
        return Action::None;
    const Action action = inStroke ? drawing[status] : idle[status];
    const bool tooHard = pressure > difference.hardestMove(maximum);
    return action == Action::DrawMove && tooHard ? Action::SkipMove : action;
}

TEST_P(PenStates, FollowTheTable)
{
    const PadDifference &difference = differenceOf(GetParam());
    withClass(GetParam(), [&](auto kind) {
        const PadRow &row = decltype(kind)::Type::row;
        for (const bool inStroke : {false, true}) {
            for (const int maximum : {1024, 2048, 8192}) {
                for (const int pressure : kPressures) {
                    for (const int status : kStatuses)
                        EXPECT_EQ(penpackets::actionFor(row, inStroke, maximum, pressure, status),
                            expectedAction(difference, inStroke, maximum, pressure, status))
                            << inStroke << " " << maximum << " " << pressure << " " << status;
                }
            }
        }
    });
}

TEST_P(PenStates, PacketsBeforeTheConnectionLeaveNoTrace)
{
    withNewInstance(GetParam(), 40, 20, [](auto &pad) {
        pad.m_pPointDataList = new std::vector<_POINTDATA>;
        const QImage before = pad.m_canvas.copy();
        const LogTail log;
        const LogOn on;
        for (const int status : {0, 1, 2, 3, 4, 5})
            penpackets::handle(pad, 5000, 5000, 500, status);
        EXPECT_EQ(log.lines(), Lines());
        EXPECT_FALSE(pad.m_bPenDown);
        EXPECT_FALSE(padparts::tapMark(pad));
        EXPECT_EQ(pad.m_nPressDeviceConfirmOrCancelKey, -1);
        EXPECT_TRUE(pad.m_pPointDataList->empty());
        EXPECT_EQ(pad.m_canvas, before);
    });
}

TEST_P(PenStates, WithoutAPointListStrokesAreDrawnAndNotStored)
{
    const RawArea area = rawArea(GetParam().family->type);
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        pad.m_bDeviceConnected = true;
        penpackets::handle(pad, area.offsetX, area.offsetY + area.spanY / 2, 1500, 0);
        EXPECT_TRUE(pad.m_bPenDown);
        EXPECT_EQ(pad.m_dblLastSignWndX, 0.0);
        EXPECT_DOUBLE_EQ(pad.m_dblLastSignWndY, 100.0);
        EXPECT_EQ(pad.m_canvas.pixelColor(0, 100), QColor(Qt::white)) << "a pen down draws nothing";
        penpackets::handle(pad, area.offsetX + area.spanX / 2, area.offsetY + area.spanY / 2, 1500, 1);
        EXPECT_DOUBLE_EQ(pad.m_dblLastSignWndX, 200.0);
        EXPECT_NE(pad.m_canvas.pixelColor(100, 100), QColor(Qt::white));
        penpackets::handle(pad, 0, 0, 0, 2);
        EXPECT_FALSE(pad.m_bPenDown);
        EXPECT_EQ(pad.m_pPointDataList, nullptr);
    });
}

TEST_P(PenStates, ThePressureFilterFollowsThePadOrNot)
{
    withNewInstance(GetParam(), 400, 200, [&](auto &pad) {
        pad.m_bDeviceConnected = true;
        pad.m_pPointDataList = new std::vector<_POINTDATA>;
        for (const int maximum : {100, 2048, 30000}) {
            pad.m_nMaxPressureValue = maximum;
            penpackets::handle(pad, 5000, 5000, 1, 0);
            for (const int pressure : {0, 99, 100, 101, 2047, 2048, 2049, 29999, 30000, 30001}) {
                const size_t before = pad.m_pPointDataList->size();
                penpackets::handle(pad, 6000, 6000, pressure, 1);
                const bool taken = pressure <= differenceOf(GetParam()).hardestMove(maximum);
                EXPECT_EQ(pad.m_pPointDataList->size(), before + taken) << pressure << " of " << maximum;
                EXPECT_TRUE(pad.m_bPenDown);
            }
        }
    });
}

TEST_P(PenStates, TapsMarkWhatTheClassSays)
{
    withNewInstance(GetParam(), 40, 20, [&](auto &pad) {
        pad.m_bDeviceConnected = true;
        penpackets::handle(pad, 1, 1, 1, 0);
        penpackets::handle(pad, 1, 1, 1, 4);
        EXPECT_EQ(padparts::tapMark(pad), differenceOf(GetParam()).confirmMarks);
        EXPECT_EQ(pad.m_nPressDeviceConfirmOrCancelKey, 1);
        EXPECT_FALSE(pad.m_bPenDown);
        padparts::tapMark(pad) = false;
        penpackets::handle(pad, 1, 1, 1, 3);
        EXPECT_TRUE(padparts::tapMark(pad));
        EXPECT_EQ(pad.m_nPressDeviceConfirmOrCancelKey, 0);
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, PenStates, testing::ValuesIn(allPads()), padCaseName);

} // namespace
