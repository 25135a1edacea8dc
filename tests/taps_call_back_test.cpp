// The receiver of taps runs on the driver's thread and calls the library from there, for all ten pads.
#include "everycall.h"
#include "penthread.h"

#include <functional>

namespace {

/// What the receiver does: it is a plain function, so there is one for all.
std::function<void(int)> whenTapped;

void tapped(int key)
{
    whenTapped(key);
}

class TapsCallBack : public testing::TestWithParam<PadCase>
{
protected:
    TapsCallBack()
        : pad(GetParam(), 60, 40)
        , everyCall(GetParam(), packets)
    {
        whenTapped = [](int) {};
        pad->SignPadEventCallback(type, tapped);
    }

    void tap(int status) { pad.driver.send(0, 0, 0, status); }

    void everyCallOfAReceiver()
    {
        everyCall.device();
        everyCall.pen();
        everyCall.points();
        everyCall.texts();
        everyCall.files();
        everyCall.record();
    }

    const int type = GetParam().family->type;
    const std::vector<KVSIM_PACKET> packets = busyPackets(type);
    OpenPad pad;
    EveryCall everyCall;
};

} // namespace

TEST_P(TapsCallBack, onTheDriversThreadWithTheKey)
{
    std::vector<int> keys;
    std::thread::id thread;
    whenTapped = [&](int key) {
        keys.push_back(key);
        thread = std::this_thread::get_id();
    };
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    tap(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
    EXPECT_EQ(keys, (std::vector<int>{1, 0}));
    EXPECT_NE(thread, std::this_thread::get_id());
}

TEST_P(TapsCallBack, beforeTheKeyStatusIsSet)
{
    int inside = 5;
    whenTapped = [&](int) { inside = pad->GetDeviceConfirmOrCancelKeyStatus(type); };
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    EXPECT_EQ(inside, -1);
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(type), 1);
}

TEST_P(TapsCallBack, andClearThePadThatClearedItself)
{
    pad.driver.send(stroke(type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    whenTapped = [&](int) { EXPECT_EQ(pad->Clear(type), ARI_SUCCESS); };
    pad.driver.forgetCalls();
    tap(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
    EXPECT_EQ(pad.driver.calls(), "") << "after cancel the driver is left alone";
    EXPECT_EQ(pad->GetTotalInkPointsNumber(type), ARI_INK_EMPTY);
    tap(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    const bool ownScreenToo = !GetParam().headless && !pad->hasScreen;
    EXPECT_EQ(pad.driver.calls(), ownScreenToo ? "" : "ClearDeviceContent\n");
}

TEST_P(TapsCallBack, besideTheApplicationsOwnCalls)
{
    std::atomic<int> taps{0};
    whenTapped = [&](int) {
        everyCallOfAReceiver();
        EXPECT_EQ(pad->Clear(type), ARI_SUCCESS);
        ++taps;
    };
    PenThread pen(pad.driver, packets);
    while (taps < 6) {
        everyCall.device();
        everyCall.pen();
        everyCall.points();
        everyCall.texts();
        QApplication::processEvents();
    }
    pen.stop();
}

INSTANTIATE_TEST_SUITE_P(AllPads, TapsCallBack, testing::ValuesIn(allPads()), padCaseName);
