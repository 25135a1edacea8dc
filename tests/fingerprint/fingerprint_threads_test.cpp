// Fingerprints and ink from the driver's thread, merges on the display thread, and a caller that clears, resizes,
// places, encodes and shuts down meanwhile.
#include "fingerprints.h"

#include <QTemporaryDir>

#include <atomic>

namespace {

constexpr int kDevice = KVS310X_DEVICE;

class FingerprintThreads : public testing::TestWithParam<PadCase>
{
};
INSTANTIATE_TEST_SUITE_P(Hosts, FingerprintThreads, testing::ValuesIn(fingerprintPads()), padCaseName);

/// The driver's side: ink and ever better fingerprints until the pad is closed.
void drive(SimulatedDriver &driver, std::atomic<bool> &stop, std::atomic<int> &sent)
{
    const auto sendPackets = reinterpret_cast<decltype(&KVSIM_SendPackets)>(driver.control("KVSIM_SendPackets"));
    const auto sendImage = reinterpret_cast<decltype(&KVSIM_SendFingerprint)>(driver.control("KVSIM_SendFingerprint"));
    const auto packets = twoStrokes(kDevice);
    const Grey images[] = {ridges(1), ridges(2), ridges(3)};
    for (int score = 1; !stop; ++score) {
        sendPackets(packets.data(), static_cast<int>(packets.size()));
        if (sendImage(images[score % 3].data(), 59904, score) == 1)
            ++sent;
    }
}

/// One round of what a caller may do; the sizes differ from round to round.
void useAll(const OpenPad &pad, QWidget &other, const std::wstring &path, int round)
{
    const int size = 220 + round % 5 * 13;
    if (QWidget *widget = pad.widget())
        widget->resize(size, 320 - size / 2);
    const int place = round % 3;
    QWidget *parent = place == 1 ? pad.window() : place == 2 ? &other : nullptr;
    if (place != 0 || pad.widget() == nullptr)
        KVS310X_SetDisplayedFPImageAt(kDevice, parent, size, size, round % 40, 10, 60, 70);
    for (const int type : {EBITI_BITMAP, EBITI_PNG}) {
        const Text text = fingerprintText(pad, type, round % 2 == 0);
        const Text encoded = textOf(pad, type);
        const Text clear = exTextOf(pad, type, true);
    }
    KVS310X_SetSaveClipImageMargin(kDevice, round % 4 == 0, 3, 3);
    KVS310X_SaveDrawingImage(kDevice, ITI_SVG, const_cast<wchar_t *>(path.c_str()), IDLI_150DPI);
    settle();
    if (round % 3 == 1)
        KVS310X_Clear(kDevice);
    if (round % 5 == 1)
        KVS310X_OpenLCD(kDevice, false);
}

} // namespace

TEST_P(FingerprintThreads, MeetWithoutHarm)
{
    QTemporaryDir directory;
    const std::wstring path = directory.filePath("drawing.svg").toStdWString();
    QWidget other;
    other.resize(200, 200);
    other.show();
    std::atomic<bool> stop{false};
    std::atomic<int> sent{0};
    SimulatedDriver simulated;
    std::thread driver;
    for (int session = 0; session < 3; ++session) {
        FingerprintPad pad(GetParam(), 240, 180, session);
        ASSERT_TRUE(pad.isOpen());
        if (!driver.joinable())
            driver = std::thread([&] { drive(simulated, stop, sent); });
        int round = 0;
        EXPECT_TRUE(becomes([&] {
            useAll(pad, other, path, round);
            return ++round >= 15 && sent > 3;
        }));
        if (session == 2) { // closed under the driver's hands
            KVS310X_UnInitialDevice(kDevice);
            EXPECT_FALSE(pad.driver.isOpen());
            stop = true;
            driver.join();
        }
    }
}

// After all that turmoil the canvas is what the last ink and the best fingerprint make it.
TEST_P(FingerprintThreads, TheLastPictureIsWholeAgain)
{
    FingerprintPad pad(GetParam(), 500, 400);
    std::atomic<bool> stop{false};
    std::atomic<int> sent{0};
    std::thread driver([&] { drive(pad.driver, stop, sent); });
    int round = 0;
    EXPECT_TRUE(becomes([&] {
        const Text text = textOf(pad, EBITI_BITMAP);
        KVS310X_Clear(kDevice);
        return ++round >= 20 && sent > 0;
    }));
    stop = true;
    driver.join();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    KVS310X_Clear(kDevice);
    pad.driver.send(twoStrokes(kDevice));
    pad.driver.sendFingerprint(ridges(4), 1);
    const QSize layer = GetParam().headless ? pad.size : QSize(kGreyWidth, kGreyHeight);
    expectBecomes([&] { return shown(pad); },
        anded(drawn(GetParam(), twoStrokes(kDevice), 500, 400),
            printed(layerOf(ridges(4), layer), middleOf(pad.size), pad.size)));
}

// A parent may take its fingerprint widget away at any moment of a merge.
TEST(FingerprintThreadsOfAWidget, AParentMayGoWhileItsWidgetIsUpdated)
{
    const PadCase widget{&kS310XFamily, false};
    FingerprintPad pad(widget, 240, 180);
    std::atomic<bool> stop{false};
    std::atomic<int> sent{0};
    std::thread driver([&] { drive(pad.driver, stop, sent); });
    int round = 0;
    EXPECT_TRUE(becomes([&] {
        QWidget other;
        other.resize(100, 100);
        other.show();
        EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(kDevice, &other, 0, 0, 5, 5, 50, 60), ARI_SUCCESS);
        settle();
        const Text text = fingerprintText(pad, EBITI_PNG, true);
        EXPECT_FALSE(text.isNull());
        return ++round >= 30 && sent > 0;
    }));
    EXPECT_TRUE(fingerprintText(pad, EBITI_PNG, true).isNull());
    stop = true;
    driver.join();
}
