// The receiver of taps calls the library from the driver's thread while the application does too, for all ten pads.
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

TEST_P(TapsCallBack, BesideTheApplicationsOwnCalls)
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
