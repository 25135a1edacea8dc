// When a receiver throws, its packet is handled as if the receiver had returned.
#include "logmessages.h"
#include "openpad.h"

#include <functional>
#include <stdexcept>

namespace {

std::function<void()> trouble;
int received = 0;

void receiveTap(int)
{
    ++received;
    trouble();
}
void receiveText(char *)
{
    ++received;
    trouble();
}

struct NoStandardException
{
};

const std::pair<const char *, std::function<void()>> kTroubles[] = {
    {"returns", [] {}},
    {"throws an exception", [] { throw std::runtime_error("a receiver's own"); }},
    {"has no memory", [] { throw std::bad_alloc(); }},
    {"throws something else", [] { throw NoStandardException(); }},
};

class ThrowingReceiver : public testing::TestWithParam<PadCase>
{
protected:
    const std::vector<KVSIM_PACKET> line = stroke(GetParam().family->type, {{0.1, 0.1, 0.2}, {0.5, 0.5, 0.2}});
};

class ThrowingPushReceiver : public ThrowingReceiver
{
};

} // namespace

TEST_P(ThrowingReceiver, OfATapLatchesTheKeyAndEndsTheStroke)
{
    const std::pair<int, int> taps[] = {
        {KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON, 1}, {KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON, 0}};
    for (const auto &[what, happens] : kTroubles) {
        for (const auto &[status, key] : taps) {
            SCOPED_TRACE(std::string(what) + ", " + std::to_string(key));
            trouble = happens;
            received = 0;
            OpenPad pad(GetParam());
            ASSERT_EQ(pad->SignPadEventCallback(pad.type(), receiveTap), ARI_SUCCESS);
            pad.driver.send({line[0], line[1]});
            const LogTail log;
            LogOn::set(true);
            pad.driver.send(0, 0, 0, status);
            LogOn::set(false);
            EXPECT_EQ(received, 1);
            EXPECT_EQ(messages(log).back().substr(messages(log).back().find("]:")), "]:<%ld>-leave !");
            const std::string tapped =
                key == 1 ? "<%ld>-Pen_Down_On_Enter_Button !" : "<%ld>-Pen_Down_On_Cancel_Button !";
            EXPECT_NE(messages(log)[messages(log).size() - 2].find(tapped), std::string::npos);
            EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), key);
            pad.driver.send({line[1], line.back()});
            EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 2) << "no stroke is open";
        }
    }
}

TEST_P(ThrowingPushReceiver, GetsTheNextMoveTooAndItsTextIsFreed)
{
    const std::string scope = std::string(GetParam().className()) + "::";
    for (const auto &[what, happens] : kTroubles) {
        SCOPED_TRACE(what);
        trouble = happens;
        received = 0;
        OpenPad pad(GetParam(), 60, 40);
        ASSERT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_PNG, receiveText));
        const LogTail log;
        LogOn::set(true);
        pad.driver.send({line[0], line[1], line[1], line.back()});
        LogOn::set(false);
        EXPECT_EQ(received, 2);
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 4);
        EXPECT_EQ(messagesOf(log, scope + "CheckIfNeedToSendRealTimeSignBase64Data()"),
            (Lines{"<%ld>-Enter...", "<%ld>-leave !", "<%ld>-Enter...", "<%ld>-leave !"}));
        int freed = 0;
        for (const std::string &text : messagesOf(log, scope + "Base64EncodeFree()"))
            freed += text.find("delete[]") != std::string::npos;
        EXPECT_EQ(freed, 2);
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, ThrowingReceiver, testing::ValuesIn(allPads()), padCaseName);
INSTANTIATE_TEST_SUITE_P(BothHosts, ThrowingPushReceiver,
    testing::Values(PadCase{&kS210Family, false}, PadCase{&kS210Family, true}), padCaseName);
