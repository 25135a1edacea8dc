// Clipping as the caller meets it: what it cuts, and what switches it on and off.
#include "inkpicture.h"

#include <QTemporaryDir>

#include <algorithm>

namespace {

class ClippedOutputs : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 300;
    static constexpr int kHeight = 150;

    ClippedOutputs()
        : pad(GetParam(), kWidth, kHeight)
        , picture(GetParam(), kWidth, kHeight)
    {
        sign();
    }

    void sign()
    {
        const auto packets = stroke(pad.type(), {{0.3, 0.4, 0.3}, {0.5, 0.6, 0.2}, {0.55, 0.45, 0.3}});
        pad.driver.send(packets);
        picture.image.fill(Qt::white);
        picture.play(packets);
    }

    // The ink of the test's own picture with margins, cut to the canvas.
    QRect inkWithMargins(int marginX, int marginY) const
    {
        QRect ink;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (picture.image.pixel(x, y) != 0xffffffff)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        const int x = std::min(marginX, kWidth);
        const int y = std::min(marginY, kHeight);
        return ink.adjusted(-x, -y, x, y) & QRect(0, 0, kWidth, kHeight);
    }

    int clip(bool on, int marginX, int marginY) const
    {
        return pad->SetSaveClipImageMargin(pad.type(), on, marginX, marginY);
    }

    QImage saved() const
    {
        const QString path = m_directory.filePath("sig.bmp");
        EXPECT_EQ(pad->SaveDrawingImage(pad.type(), ITI_BITMAP, path.toStdWString().data(), IDLI_150DPI), ARI_SUCCESS);
        return QImage(path).convertToFormat(QImage::Format_ARGB32);
    }

    OpenPad pad;
    InkPicture picture;

private:
    QTemporaryDir m_directory;
};

INSTANTIATE_TEST_SUITE_P(AllPads, ClippedOutputs, testing::ValuesIn(allPads()), padCaseName);

TEST_P(ClippedOutputs, AreTheInkWithItsMargins)
{
    const std::pair<int, int> kMargins[] = {{5, 7}, {0, 9}, {9, 0}, {1000, 3}, {2147483647, 2147483647}};
    for (const auto &[marginX, marginY] : kMargins) {
        EXPECT_EQ(clip(true, marginX, marginY), 0);
        const QImage expected = picture.image.copy(inkWithMargins(marginX, marginY));
        EXPECT_EQ(difference(saved(), expected), "") << marginX << ", " << marginY;
        EXPECT_EQ(difference(pad.canvas(), expected), "") << marginX << ", " << marginY;
    }
    EXPECT_EQ(clip(false, 5, 7), 0);
    EXPECT_EQ(difference(saved(), picture.image), "");
}

TEST_P(ClippedOutputs, AreWholeWithoutAnyMargin)
{
    EXPECT_EQ(clip(true, 5, 5), 0);
    EXPECT_EQ(clip(true, 0, 0), 0);
    EXPECT_EQ(difference(saved(), picture.image), "");
    EXPECT_EQ(difference(pad.canvas(), picture.image), "");
}

TEST_P(ClippedOutputs, StayAsTheyWereWhenAMarginIsRefused)
{
    EXPECT_EQ(clip(true, 5, 7), 0);
    EXPECT_EQ(clip(false, -1, 0), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(clip(false, 0, -1), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(difference(saved(), picture.image.copy(inkWithMargins(5, 7))), "");
}

TEST_P(ClippedOutputs, AreWholeAgainAfterAClear)
{
    EXPECT_EQ(clip(true, 5, 7), 0);
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    sign();
    EXPECT_EQ(difference(saved(), picture.image), "");
}

TEST_P(ClippedOutputs, StayCutAfterThePadsScreenWasSwitchedOff)
{
    if (!GetParam().family->hasScreen)
        return;
    EXPECT_EQ(clip(true, 5, 7), 0);
    EXPECT_EQ(pad->OpenLCD(pad.type(), false), 0);
    sign();
    EXPECT_EQ(difference(saved(), picture.image.copy(inkWithMargins(5, 7))), "");
}

TEST_P(ClippedOutputs, OfABlankCanvasFailAsImagesAndAreEmptyPagesElsewhere)
{
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    pad.driver.send(stroke(pad.type(), {{0.5, 0.5, 0.5}}));
    QTemporaryDir directory;
    const std::pair<int, int> kMargins[] = {{5, 7}, {99999 - kWidth, 7}, {5, 99999 - kHeight}};
    for (const auto &[marginX, marginY] : kMargins) {
        EXPECT_EQ(clip(true, marginX, marginY), 0);
        const std::pair<int, const char *> kTypes[] = {{ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"}};
        for (const auto &[type, name] : kTypes) {
            std::wstring path = directory.filePath(name).toStdWString();
            EXPECT_EQ(pad->SaveDrawingImage(pad.type(), type, path.data(), IDLI_150DPI), ARI_INK_EMPTY)
                << name << marginX;
            EXPECT_FALSE(QFile::exists(directory.filePath(name)));
        }
        std::wstring pdf = directory.filePath("a.pdf").toStdWString();
        EXPECT_EQ(pad->SaveDrawingImage(pad.type(), ITI_PDF, pdf.data(), IDLI_150DPI), ARI_SUCCESS);
        std::wstring svg = directory.filePath("a.svg").toStdWString();
        EXPECT_EQ(pad->SaveDrawingImage(pad.type(), ITI_SVG, svg.data(), IDLI_150DPI), ARI_SUCCESS);
        EXPECT_TRUE(QFile::exists(directory.filePath("a.pdf")) && QFile::exists(directory.filePath("a.svg")));
    }
}

// With these margins the rectangle of a blank canvas is 0 by 0, which QImage::copy() takes for the whole image.
TEST_P(ClippedOutputs, OfABlankCanvasAreWholeWhereTheRectangleIsNull)
{
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    pad.driver.send(stroke(pad.type(), {{0.5, 0.5, 0.5}}));
    EXPECT_EQ(clip(true, 99999 - kWidth, 99999 - kHeight), 0);
    QImage blank(kWidth, kHeight, QImage::Format_ARGB32);
    blank.fill(Qt::white);
    EXPECT_EQ(difference(saved(), blank), "");
    EXPECT_EQ(difference(pad.canvas(), blank), "");
}

} // namespace
