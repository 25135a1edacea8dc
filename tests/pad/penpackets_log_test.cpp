// What the packet handler writes to the log.
#include "insidepads.h"
#include "logmessages.h"
#include "paddifferences.h"

namespace {

class PenLog : public testing::TestWithParam<PadCase>
{
protected:
    std::string key(const std::string &member) const { return std::string(GetParam().className()) + "::" + member; }
    std::string handlerKey() const
    {
        const std::string widget =
            GetParam().family->widgetClass; // "CS300SignWidget" handles in "RxS300SignPadRawData"
        return key("Rx" + widget.substr(1, widget.size() - 7) + "PadRawData()");
    }
    /// Ratios and sizes that print without rounding.
    template <class Pad>
    void useRoundRatios(Pad &pad) const
    {
        pad.m_SignContext.dblWidthRatioOfSignWndOverSignRaw = 0.5;
        pad.m_SignContext.dblHeightRatioOfSignWndOverSignRaw = 0.25;
        pad.m_SignContext.dblSignPressureRatio = 0.125;
    }
};

TEST_P(PenLog, TellsEachPacket)
{
    OpenPad pad(GetParam());
    withOpenInstance(GetParam(), [&](auto &instance) { useRoundRatios(instance); });
    const RawArea area = rawArea(pad.type());
    const int x = area.offsetX;
    const int y = area.offsetY;
    const auto enter = [&](int dx, int dy, int pressure, int status) {
        return "<%ld>-Enter, nX=" + std::to_string(x + dx) + ", nY=" + std::to_string(y + dy)
            + ", nP=" + std::to_string(pressure) + ", nPenStatus=" + std::to_string(status);
    };
    const std::string leave = "<%ld>-leave !";
    const LogTail log;
    {
        const LogOn on;
        pad.driver.send({{x + 3, y + 10, 80, 0}, {x + 7, y + 20, 16, 1}, {x + 9, y + 40, 8, 2}, {x, y, 1, 1},
            {x, y, 1, 2}, {x, y, 0, 3}, {x, y, 0, 4}, {x, y, 0, 5}, {x, y, 0, -1}});
    }
    EXPECT_EQ(messagesOf(log, handlerKey()),
        (Lines{enter(3, 10, 80, 0),
            "<%ld>-Pen_Down, dblSignWndX=1.500000, dblSignWndY=2.500000, dblSignWndPressure=10.000000", leave,
            enter(7, 20, 16, 1),
            "<%ld>-Pen_Move, dblSignWndX=3.500000, dblSignWndY=5.000000, dblSignWndPressure=2.000000", leave,
            enter(9, 40, 8, 2),
            "<%ld>-Pen_Up, dblSignWndX=4.500000, dblSignWndY=10.000000, dblSignWndPressure=1.000000", leave,
            enter(0, 0, 1, 1), leave, enter(0, 0, 1, 2), leave, enter(0, 0, 0, 3), "<%ld>-Pen_Down_On_Cancel_Button !",
            leave, enter(0, 0, 0, 4), "<%ld>-Pen_Down_On_Enter_Button !", leave, enter(0, 0, 0, 5), leave,
            enter(0, 0, 0, -1), leave}));
}

TEST_P(PenLog, TellsASkippedMoveOrADrawnOne)
{
    OpenPad pad(GetParam());
    const RawArea area = rawArea(pad.type());
    pad.driver.send(area.offsetX, area.offsetY, 1, 0);
    const LogTail log;
    {
        const LogOn on;
        pad.driver.send(area.offsetX, area.offsetY, area.maxPressure + 1, 1);
    }
    const Lines lines = messagesOf(log, handlerKey());
    ASSERT_EQ(lines.size(), 3U);
    if (differenceOf(GetParam()).hardestMove(area.maxPressure) == area.maxPressure)
        EXPECT_EQ(lines[1], "<%ld>-Rx invalid pressure value, skip !");
    else
        EXPECT_EQ(lines[1].rfind("<%ld>-Pen_Move, ", 0), 0U) << lines[1];
}

TEST_P(PenLog, DrawsBetweenTheLinesOfAMove)
{
    OpenPad pad(GetParam());
    withOpenInstance(GetParam(), [&](auto &instance) { useRoundRatios(instance); });
    const RawArea area = rawArea(pad.type());
    pad.driver.send(area.offsetX, area.offsetY, 1, 0);
    const LogTail log;
    {
        const LogOn on;
        pad.driver.send(area.offsetX + 7, area.offsetY + 20, 16, 1);
    }
    const std::string drawing = "[" + key("StartSignOnCanvas()") + "]:";
    const std::string handler = "[" + handlerKey() + "]:";
    Lines order;
    for (const std::string &message : messages(log)) {
        if (message.rfind(drawing, 0) == 0 || message.rfind(handler, 0) == 0)
            order.push_back(message.substr(message.find("]:") + 2));
    }
    ASSERT_EQ(order.size(), 5U);
    EXPECT_EQ(order[1], "<%ld>-enter, dblX=3.500000, dblY=5.000000, dblPressure=2.000000");
    EXPECT_EQ(order[2], "<%ld>-leave !");
    EXPECT_EQ(order[3], "<%ld>-Pen_Move, dblSignWndX=3.500000, dblSignWndY=5.000000, dblSignWndPressure=2.000000");
}

void ignore(int) { }

TEST_P(PenLog, TellsTheReceiverAndTheKey)
{
    OpenPad pad(GetParam());
    pad.driver.send(0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    char address[32];
    std::snprintf(address, sizeof address, "%lx", reinterpret_cast<unsigned long>(&ignore));
    const LogTail log;
    const LogOn on;
    pad->SignPadEventCallback(pad.type(), ignore);
    pad->GetDeviceConfirmOrCancelKeyStatus(pad.type());
    EXPECT_EQ(messagesOf(log, key("SetSignPadEventCallback()")),
        (Lines{"<%ld>-enter, pfnSignPadEventCallback=" + std::string(address), "<%ld>-leave with nResult=0 !"}));
    const Lines lines = messagesOf(log, key("GetDeviceConfirmOrCancelKeyStatus()"));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[1], "<%ld>-leave with nResult=1 !");
}

INSTANTIATE_TEST_SUITE_P(AllPads, PenLog, testing::ValuesIn(allPads()), padCaseName);

} // namespace
