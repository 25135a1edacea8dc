// The display thread's passes, run by hand: taking a picture over, sending it, and the merge one pass later.
#include "handrunpad.h"
#include "logfile.h"

#include <cstring>

namespace {

template <class Pad>
class FingerprintDisplay : public testing::Test
{
};
TYPED_TEST_SUITE(FingerprintDisplay, FingerprintClasses, FingerprintClassName);

template <class Pad>
bool isMerged(const HandRunPad<Pad> &pad)
{
    return pad->m_canvas != layerOf(evenGrey(1), pad->m_canvas.size());
}

} // namespace

TYPED_TEST(FingerprintDisplay, WithoutAPictureAPassDoesNothing)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad->m_bStartShowFPImageRawDataOnDevice = true;
    pad.pass();
    EXPECT_FALSE(pad->m_bStartShowFPImageRawDataOnDevice);
    EXPECT_FALSE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    EXPECT_TRUE(PadScreen::transfers.empty());
}

TYPED_TEST(FingerprintDisplay, SendsAPictureAndMergesOnePassLater)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 10);
    pad->CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
    EXPECT_FALSE(pad->m_bNewFPImageRawDataOnDeviceAvailable);
    EXPECT_TRUE(pad->m_bStartShowFPImageRawDataOnDevice);
    EXPECT_EQ(std::memcmp(pad->m_ucCurrentFPImageRawDataOnDevice, padPictureOf(ridges(1)).data(), kPictureBytes), 0);
    EXPECT_TRUE(PadScreen::transfers.empty());

    pad->ProcessShowFPImgaeRawDataOnDevice();
    ASSERT_EQ(PadScreen::transfers.size(), 1u);
    const PadScreen::Transfer &transfer = PadScreen::transfers[0];
    EXPECT_EQ(transfer.bytes, padPictureOf(ridges(1)));
    EXPECT_EQ(transfer.image, pad->m_ucCurrentFPImageRawDataOnDevice);
    EXPECT_EQ(transfer.length, 29952);
    EXPECT_EQ(transfer.width, 104);
    EXPECT_EQ(transfer.height, 144);
    EXPECT_EQ(transfer.abort, &pad->m_bGoToShutDown);
    EXPECT_TRUE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    EXPECT_FALSE(isMerged(pad));

    pad.pass();
    EXPECT_EQ(PadScreen::transfers.size(), 1u);
    EXPECT_FALSE(pad->m_bStartShowFPImageRawDataOnDevice);
    EXPECT_FALSE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    EXPECT_TRUE(isMerged(pad));

    pad->m_canvas.fill(Qt::white);
    pad.pass();
    EXPECT_FALSE(isMerged(pad)) << "merged once more";
}

TYPED_TEST(FingerprintDisplay, TheMergeWaitsWhilePicturesComeIn)
{
    HandRunPad<TypeParam> pad(400, 300);
    for (int score = 1; score <= 3; ++score) {
        pad.takeIn(ridges(score), score);
        pad.pass();
        EXPECT_EQ(PadScreen::transfers.size(), static_cast<size_t>(score));
        EXPECT_FALSE(isMerged(pad)) << score;
    }
    pad.pass();
    EXPECT_TRUE(isMerged(pad));
}

TYPED_TEST(FingerprintDisplay, ShowsOnlyTheLatestOfPicturesThatWaited)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad.takeIn(ridges(2), 2);
    pad.pass();
    pad.pass();
    ASSERT_EQ(PadScreen::transfers.size(), 1u);
    EXPECT_EQ(PadScreen::transfers[0].bytes, padPictureOf(ridges(2)));
}

TYPED_TEST(FingerprintDisplay, AFailedTransferCountsAsShown)
{
    HandRunPad<TypeParam> pad(400, 300);
    PadScreen::result = KVSPDARI_LIBUSB_SENT_CMD_FAIL;
    pad.takeIn(ridges(1), 1);
    pad.pass();
    EXPECT_TRUE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    pad.pass();
    EXPECT_TRUE(isMerged(pad));
    EXPECT_EQ(PadScreen::transfers.size(), 1u);
}

TYPED_TEST(FingerprintDisplay, WithoutTheDriversOperationThereIsNeitherPictureNorMerge)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad->m_pfn_KVSPDAPI_ShowFPImageOnDevice = nullptr;
    pad.takeIn(ridges(1), 1);
    pad.pass();
    EXPECT_FALSE(pad->m_bNewFPImageRawDataOnDeviceAvailable) << "not taken over";
    EXPECT_FALSE(pad->m_bAlreadyShownFPImageRawDataOnDevice);
    pad.pass();
    EXPECT_FALSE(isMerged(pad));
}

TYPED_TEST(FingerprintDisplay, ThePictureBeingSentIsACopy)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad->CheckIfAnyNewFPImageRawDataOnDeviceAvailable();
    pad.takeIn(ridges(2), 2);
    pad->ProcessShowFPImgaeRawDataOnDevice();
    ASSERT_EQ(PadScreen::transfers.size(), 1u);
    EXPECT_EQ(PadScreen::transfers[0].bytes, padPictureOf(ridges(1)));
    EXPECT_TRUE(pad->m_bNewFPImageRawDataOnDeviceAvailable);
}

TYPED_TEST(FingerprintDisplay, OnlyTheHeadlessClassAnnouncesTheMerge)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad.pass();
    const LogTail log;
    const LogOn on;
    pad.pass();
    std::vector<LogEntry> entries = log.entries();
    ASSERT_FALSE(entries.empty());
    const std::string scope = TypeParam::row.scope;
    if (!HandRunPad<TypeParam>::kIsWidget) {
        EXPECT_EQ(entries.front(),
            (LogEntry{scope + "ProcessShowFPImgaeRawDataOnDevice()", "b4 call MergeSignCanvasAndFPCanvas()..."}));
        entries.erase(entries.begin());
    }
    for (const LogEntry &entry : entries)
        EXPECT_EQ(entry.key, scope + "MergeSignCanvasAndFPCanvas()");
}

TYPED_TEST(FingerprintDisplay, PollingLogsNothing)
{
    HandRunPad<TypeParam> pad(400, 300);
    const LogTail log;
    const LogTail inThreadLog(kInThreadLogFile);
    const LogOn on;
    EXPECT_FALSE(pad->AreWeGoingToShutDown());
    pad.pass();
    pad->m_bGoToShutDown = true;
    EXPECT_TRUE(pad->AreWeGoingToShutDown());
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(inThreadLog.lines().empty());
}

// The canvas lock is held around the merge, so that nobody paints or encodes a half-composed canvas.
TYPED_TEST(FingerprintDisplay, TheMergeWaitsForTheCanvasLock)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad.pass();
    pad->m_mutexUpdateCanvas.lock();
    std::thread display([&] { pad.pass(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const bool mergedMeanwhile = isMerged(pad);
    pad->m_mutexUpdateCanvas.unlock();
    display.join();
    EXPECT_FALSE(mergedMeanwhile);
    EXPECT_TRUE(isMerged(pad));
}

TYPED_TEST(FingerprintDisplay, TheMergeItselfTakesNoLock)
{
    HandRunPad<TypeParam> pad(400, 300);
    pad.takeIn(ridges(1), 1);
    pad->m_mutexUpdateCanvas.lock();
    pad->MergeSignCanvasAndFPCanvas(); // would wait for ever
    pad->m_mutexUpdateCanvas.unlock();
    EXPECT_TRUE(isMerged(pad));
}

TEST(FingerprintDisplayOfAWidget, RepaintsAfterTheMerge)
{
    struct Painted : QObject
    {
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::Paint;
            return false;
        }
    } painted;
    HandRunPad<CS310XSignWidget> pad(400, 300);
    settle();
    pad->installEventFilter(&painted);
    pad.takeIn(ridges(1), 1);
    pad.pass();
    settle();
    EXPECT_EQ(painted.count, 0);
    std::thread([&] { pad.pass(); }).join();
    settle();
    EXPECT_EQ(painted.count, 1);
}
