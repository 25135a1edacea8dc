// A process without any Qt application object: a headless fingerprint pad works there as everywhere.
#include "fingerprints.h"
#include "logmessages.h"

#include <QCoreApplication>

namespace {

constexpr int kDevice = KVS310X_DEVICE;
const PadCase kHeadlessPad{&kS310XFamily, true};

int place(int width, int height, const QRect &target)
{
    return KVS310X_SetDisplayedFPImageAt(
        kDevice, nullptr, width, height, target.left(), target.top(), target.width(), target.height());
}

class WithoutApplication : public testing::Test
{
protected:
    WithoutApplication() { EXPECT_EQ(QCoreApplication::instance(), nullptr); }
};

} // namespace

TEST_F(WithoutApplication, TheFingerprintIsShownMergedAndEncoded)
{
    FingerprintPad pad(kHeadlessPad, 500, 400);
    ASSERT_TRUE(pad.isOpen());
    pad.driver.sendFingerprint(ridges(1), 10);
    EXPECT_TRUE(becomes([&] { return pad.shownPictures() == 1; }));
    EXPECT_EQ(pad.lastPicture(), padPictureOf(ridges(1)));
    const QImage print = printed(layerOf(ridges(1), pad.size), middleOf(pad.size), pad.size);
    expectBecomes([&] { return shown(pad); }, print);
    pad.driver.send(twoStrokes(kDevice));
    EXPECT_EQ(difference(shown(pad), anded(print, drawn(kHeadlessPad, twoStrokes(kDevice), 500, 400))), "");
    EXPECT_TRUE(svgTextOf(pad).bytes().contains("<image"));
}

TEST_F(WithoutApplication, ItHasAPlaceOfItsOwn)
{
    FingerprintPad pad(kHeadlessPad, 500, 400);
    EXPECT_TRUE(fingerprintText(pad, EBITI_PNG, false).isNull());
    EXPECT_EQ(place(300, 330, {10, 20, 291, 288}), ARI_INVALID_PARAMETERS);
    EXPECT_TRUE(fingerprintText(pad, EBITI_PNG, false).isNull());
    const QRect target(10, 20, kGreyWidth, kGreyHeight);
    ASSERT_EQ(place(300, 330, target), ARI_SUCCESS);
    EXPECT_EQ(difference(fingerprintImage(pad), printed({}, {}, {300, 330})), "");
    pad.driver.sendFingerprint(ridges(1), 10);
    const QImage layer = layerOf(ridges(1), pad.size);
    const QImage placed = printed(layer, target, {300, 330});
    EXPECT_EQ(difference(fingerprintImage(pad), placed), "");
    EXPECT_EQ(fingerprintText(pad, EBITI_PNG, true).bytes(), fileOf(whiteMadeTransparent(placed.copy(target)), "PNG"));
    EXPECT_EQ(fingerprintText(pad, EBITI_JPEG, false).bytes(), fileOf(placed, "JPG"));

    ASSERT_EQ(KVS310X_SetSaveClipImageMargin(kDevice, true, 5, 5), ARI_SUCCESS);
    const QSize clipped = fingerprintImage(pad).size();
    EXPECT_LE(clipped.width(), kGreyWidth + 10);
    EXPECT_GT(clipped.width(), kGreyWidth / 2);
    ASSERT_EQ(KVS310X_Clear(kDevice), ARI_SUCCESS);
    EXPECT_EQ(difference(fingerprintImage(pad), printed({}, {}, {300, 330})), "");

    ASSERT_EQ(place(60, 50, {0, 0, 60, 50}), ARI_SUCCESS);
    EXPECT_EQ(fingerprintImage(pad).size(), QSize(60, 50));
}

// As with a QApplication, where the place is a widget that was made without a parent.
TEST_F(WithoutApplication, ARefusedPlaceTakesOverWithAWhiteCanvas)
{
    FingerprintPad pad(kHeadlessPad, 500, 400);
    ASSERT_EQ(place(300, 200, {0, 0, 300, 200}), ARI_SUCCESS);
    EXPECT_EQ(place(300, 200, {250, 150, 100, 120}), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(difference(fingerprintImage(pad), printed({}, {}, {640, 480})), "");
    pad.driver.sendFingerprint(ridges(1), 10);
    EXPECT_EQ(
        difference(fingerprintImage(pad), printed(layerOf(ridges(1), pad.size), {250, 150, 100, 120}, {640, 480})), "");
}

TEST_F(WithoutApplication, ThePlaceIsMadeAndEndedInTheLogAsAWidgetIs)
{
    const LogTail log;
    {
        FingerprintPad pad(kHeadlessPad, 50, 40);
        const LogOn on;
        ASSERT_EQ(place(300, 200, {0, 0, 300, 200}), ARI_SUCCESS);
        ASSERT_EQ(place(300, 200, {0, 0, 300, 200}), ARI_SUCCESS);
        KVS310X_UnInitialDevice(kDevice);
    }
    const std::string scope = "[CS310XFPWidget::";
    Lines found;
    for (const std::string &line : messages(log))
        if (line.find(scope) == 0 && line.find("SetDisplayedFPImageAt") == std::string::npos)
            found.push_back(line.substr(scope.size()));
    const std::string enter = "]:<%ld>-Enter...";
    const std::string leave = "]:<%ld>-leave !";
    EXPECT_EQ(found,
        (Lines{"CS310XFPWidget()" + enter, "CS310XFPWidget()" + leave, // each placement makes one
            "CS310XFPWidget()" + enter, "CS310XFPWidget()" + leave, // the former goes without a word
            "Clear()" + enter, "Clear()" + leave, "Shutdown()" + enter, "Clear()" + enter, "Clear()" + leave,
            "Shutdown()" + leave}));
}
