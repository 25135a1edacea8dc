// The signature as Base64 texts of BMP, JPEG and PNG files.
#include "returnedtext.h"

#include <climits>

namespace {

constexpr int kWidth = 240;
constexpr int kHeight = 130;

struct Format
{
    int type;
    const char *name;
};
constexpr Format kFormats[] = {{1, "BMP"}, {2, "JPG"}, {3, "PNG"}};
constexpr int kTypes[] = {1, 2, 3};

class Base64Text : public testing::TestWithParam<PadCase>
{
protected:
    Base64Text() { EXPECT_TRUE(pad.isOpen()); }
    void sign()
    {
        const auto packets = twoStrokes(pad.type());
        pad.driver.send(packets);
        expected = drawn(GetParam(), packets, kWidth, kHeight);
    }
    /// Strokes that leave the canvas as it was: points, and no ink.
    void signInWhite()
    {
        ASSERT_EQ(pad->SetPenColor(pad.type(), 255, 255, 255), ARI_SUCCESS);
        pad.driver.send(twoStrokes(pad.type()));
    }

    OpenPad pad{GetParam(), kWidth, kHeight};
    QImage expected;
};

} // namespace

TEST_P(Base64Text, EncodesTheFileOfQtsOwnWriter)
{
    sign();
    for (const Format &format : kFormats) {
        const QImage image = format.type == 3 ? whiteMadeTransparent(expected) : expected;
        EXPECT_EQ(textOf(pad, format.type).bytes(), fileOf(image, format.name)) << format.name;
    }
}

TEST_P(Base64Text, MakesWhiteTransparentInPngOnly)
{
    sign();
    const QImage png = QImage::fromData(textOf(pad, 3).bytes(), "PNG");
    const QImage bmp = QImage::fromData(textOf(pad, 1).bytes(), "BMP");
    ASSERT_EQ(png.size(), expected.size());
    int white = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const QRgb pixel = expected.pixel(x, y);
            white += pixel == 0xffffffff ? 1 : 0;
            ASSERT_EQ(qAlpha(png.pixel(x, y)), pixel == 0xffffffff ? 0 : 255) << x << ',' << y;
            if (pixel != 0xffffffff) {
                ASSERT_EQ(png.pixel(x, y), pixel) << x << ',' << y;
            }
            ASSERT_EQ(bmp.pixel(x, y), pixel) << x << ',' << y;
        }
    }
    EXPECT_GT(white, 0);
    EXPECT_LT(white, kWidth * kHeight);
}

TEST_P(Base64Text, ExFormChoosesThePngBackgroundAndNothingElse)
{
    sign();
    EXPECT_EQ(exTextOf(pad, 3, false).bytes(), fileOf(expected, "PNG"));
    for (const int type : kTypes)
        EXPECT_EQ(exTextOf(pad, type, true).text(), textOf(pad, type).text()) << type;
    EXPECT_EQ(exTextOf(pad, 2, false).text(), textOf(pad, 2).text());
    EXPECT_EQ(exTextOf(pad, 1, false).text(), textOf(pad, 1).text());
}

TEST_P(Base64Text, LengthIsAMultipleOfFourForAnySize)
{
    sign();
    for (int margin = 1; margin < 12; ++margin) {
        ASSERT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, margin, margin + 1), ARI_SUCCESS);
        const Text text = exTextOf(pad, 3, false);
        const int size = text.bytes().size();
        EXPECT_GT(size, 0);
        EXPECT_EQ(text.text().size(), (size + 2) / 3 * 4);
    }
}

TEST_P(Base64Text, ShowsThePartInsideTheClipRectangle)
{
    sign();
    ASSERT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 4, 6), ARI_SUCCESS);
    const QRect ink = inkOf(expected);
    ASSERT_TRUE(expected.rect().contains(ink.adjusted(-4, -6, 4, 6)));
    const QImage clipped = expected.copy(ink.adjusted(-4, -6, 4, 6));
    EXPECT_EQ(textOf(pad, 1).bytes(), fileOf(clipped, "BMP"));
    EXPECT_EQ(textOf(pad, 2).bytes(), fileOf(clipped, "JPG"));
    EXPECT_EQ(textOf(pad, 3).bytes(), fileOf(whiteMadeTransparent(clipped), "PNG"));
    EXPECT_EQ(exTextOf(pad, 3, false).bytes(), fileOf(clipped, "PNG"));

    ASSERT_EQ(pad->SetSaveClipImageMargin(pad.type(), false, 4, 6), ARI_SUCCESS);
    EXPECT_EQ(textOf(pad, 1).bytes(), fileOf(expected, "BMP"));
}

TEST_P(Base64Text, EmptyClipRectangleGivesAnEmptyTextNotNull)
{
    signInWhite();
    // The later margins make one side of the rectangle exactly 0. With both there is the whole canvas.
    for (const auto &[x, y] : {std::pair(4, 6), std::pair(99999 - kWidth, 6), std::pair(4, 99999 - kHeight)}) {
        ASSERT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, x, y), ARI_SUCCESS);
        for (const int type : kTypes) {
            for (const bool transparent : {false, true}) {
                const Text ex = exTextOf(pad, type, transparent);
                ASSERT_FALSE(ex.isNull()) << type;
                EXPECT_EQ(ex.text(), "") << type << ' ' << x;
            }
            const Text text = textOf(pad, type);
            ASSERT_FALSE(text.isNull()) << type;
            EXPECT_EQ(text.text(), "") << type << ' ' << x;
        }
    }
    for (const bool clip : {true, false}) {
        pad->SetSaveClipImageMargin(pad.type(), clip, 99999 - kWidth, 99999 - kHeight);
        EXPECT_EQ(QImage::fromData(textOf(pad, 3).bytes(), "PNG").size(), QSize(kWidth, kHeight));
    }
}

TEST_P(Base64Text, NullWithoutAPoint)
{
    const auto expectNone = [&] {
        for (const int type : {1, 2, 3, 6}) {
            EXPECT_TRUE(textOf(pad, type).isNull()) << type;
            EXPECT_TRUE(exTextOf(pad, type, true).isNull()) << type;
            EXPECT_TRUE(exTextOf(pad, type, false).isNull()) << type;
        }
        EXPECT_TRUE(svgTextOf(pad).isNull());
    };
    expectNone();
    sign();
    EXPECT_FALSE(textOf(pad, 1).isNull());
    EXPECT_FALSE(svgTextOf(pad).isNull());
    pad->Clear(pad.type());
    expectNone();
}

TEST_P(Base64Text, OnePointIsEnoughThoughItLeavesNoMark)
{
    pad.driver.send(1000, 900, 500, KVSPDARI_PS_PEN_DOWN);
    QImage white(kWidth, kHeight, QImage::Format_ARGB32);
    white.fill(Qt::white);
    EXPECT_EQ(textOf(pad, 1).bytes(), fileOf(white, "BMP"));
    EXPECT_EQ(textOf(pad, 3).bytes(), fileOf(whiteMadeTransparent(white), "PNG"));
    EXPECT_FALSE(svgTextOf(pad).isNull());
}

TEST_P(Base64Text, NullForOtherTypes)
{
    sign();
    for (const int type : {INT_MIN, -1, 0, 4, 5, 7, 8, INT_MAX}) {
        EXPECT_TRUE(textOf(pad, type).isNull()) << type;
        EXPECT_TRUE(exTextOf(pad, type, true).isNull()) << type;
    }
}

TEST_P(Base64Text, EachTextIsANewOneAndNullIsFreedWithoutHarm)
{
    sign();
    const Text first = textOf(pad, 3);
    const Text second = textOf(pad, 3);
    EXPECT_NE(first.pointer(), second.pointer());
    EXPECT_EQ(first.text(), second.text());
    pad->Base64EncodeFree(pad.type(), nullptr);
    pad->Base64EncodeExFree(pad.type(), nullptr);
    pad->FreeSVGImageBase64Data(pad.type(), nullptr);
    EXPECT_EQ(textOf(pad, 3).text(), first.text());
}

TEST_P(Base64Text, IsNotChangedByEncodingBefore)
{
    sign();
    const QByteArray before = textOf(pad, 1).text();
    textOf(pad, 3);
    textOf(pad, 2);
    svgTextOf(pad);
    EXPECT_EQ(textOf(pad, 1).text(), before);
}

INSTANTIATE_TEST_SUITE_P(AllPads, Base64Text, testing::ValuesIn(allPads()), padCaseName);
