// The fingerprint in an SVG file: where it stands, what it shows, and a save without any ink.
#include "fingerprints.h"
#include "inkpicture.h"
#include "readsvg.h"
#include "savedfiles.h"

namespace {

class SvgFingerprint : public testing::TestWithParam<PadCase>
{
};

INSTANTIATE_TEST_SUITE_P(FingerprintPads, SvgFingerprint, testing::ValuesIn(fingerprintPads()), padCaseName);

SvgFile saved(const OpenPad &pad, const SavedFiles &files)
{
    EXPECT_EQ(files.save(pad, ITI_SVG, "sig.svg", IDLI_300DPI), ARI_SUCCESS);
    return readSvg(files.bytes("sig.svg"));
}

TEST_P(SvgFingerprint, StandsInTheMiddleWithItsHalvingRoundedDown)
{
    struct Row
    {
        int width;
        int height;
        int left;
        int top;
    };
    // (width - 208) / 2 and (height - 288) / 2, toward minus infinity.
    const Row kRows[] = {{600, 400, 196, 56}, {601, 401, 196, 56}, {209, 290, 0, 1}, {208, 288, 0, 0},
        {207, 287, -1, -1}, {101, 50, -54, -119}};
    for (const Row &row : kRows) {
        OpenPad pad(GetParam(), row.width, row.height);
        const Grey print = ridges(1);
        pad.driver.sendFingerprint(print, 60);
        const SavedFiles files;
        const SvgFile file = saved(pad, files);
        ASSERT_EQ(file.pictures.size(), 1u);
        EXPECT_TRUE(file.lines.empty());
        EXPECT_EQ(file.pictures[0].place.topLeft(), QPointF(row.left, row.top));
        // The layer has the canvas's size until a resize makes it the sensor's.
        const QSize size = GetParam().headless ? QSize(row.width, row.height) : QSize(208, 288);
        EXPECT_EQ(file.pictures[0].place.size(), QSizeF(size));
        const QImage picture = file.pictures[0].image.convertToFormat(QImage::Format_ARGB32);
        EXPECT_EQ(difference(picture, layerOf(print, size)), "");
        EXPECT_EQ(file.pictures[0].image.dotsPerMeterX(), 11811);
        EXPECT_EQ(file.pictures[0].image.dotsPerMeterY(), 11811);
        EXPECT_EQ(file.viewBox, QRectF(0, 0, row.width, row.height));
    }
}

TEST_P(SvgFingerprint, ComesBeforeTheStrokesAndGoesWithAClear)
{
    OpenPad pad(GetParam(), 400, 300);
    const SavedFiles files;
    pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    EXPECT_TRUE(saved(pad, files).pictures.empty());
    pad.driver.sendFingerprint(ridges(2), 1); // the least score that counts
    EXPECT_EQ(saved(pad, files).pictures.size(), 1u);
    EXPECT_EQ(saved(pad, files).lines.size(), 1u);
    const QByteArray text = files.bytes("sig.svg");
    EXPECT_LT(text.indexOf("<image"), text.indexOf("<polyline"));
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    EXPECT_TRUE(saved(pad, files).pictures.empty());
}

TEST_P(SvgFingerprint, AloneIsEnoughToSaveEveryType)
{
    OpenPad pad(GetParam(), 400, 300);
    const SavedFiles files;
    const std::pair<int, const char *> kTypes[] = {
        {ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"}, {ITI_PDF, "a.pdf"}, {ITI_SVG, "a.svg"}};
    for (const auto &[type, name] : kTypes)
        EXPECT_EQ(files.save(pad, type, name), ARI_INK_EMPTY) << name;
    EXPECT_TRUE(files.names().empty());
    pad.driver.sendFingerprint(ridges(3), 1);
    for (const auto &[type, name] : kTypes)
        EXPECT_EQ(files.save(pad, type, name), ARI_SUCCESS) << name;
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    EXPECT_EQ(files.save(pad, ITI_PNG, "b.png"), ARI_INK_EMPTY);
}

} // namespace
