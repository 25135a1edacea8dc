// SVG files: the strokes drawn anew as lines, read back line by line.
#include "inkpicture.h"
#include "logmessages.h"
#include "outsideprogram.h"
#include "readsvg.h"
#include "savedfiles.h"

#include <QRegularExpression>

namespace {

class SvgFiles : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 320;
    static constexpr int kHeight = 170;

    SvgFiles()
        : pad(GetParam(), kWidth, kHeight)
        , picture(GetParam(), kWidth, kHeight)
    {
    }

    void sign(const std::vector<KVSIM_PACKET> &more)
    {
        pad.driver.send(more);
        packets.insert(packets.end(), more.begin(), more.end());
        picture.play(more);
    }

    // The lines that the packets make: widths without pressure are the level on every pad.
    SvgLines expected(const QPointF &origin = {}) const
    {
        SvgLines lines;
        bool drawn = false;
        QPointF last;
        for (const KVSIM_PACKET &packet : packets) {
            if (packet.status != KVSPDARI_PS_PEN_DOWN && packet.status != KVSPDARI_PS_PEN_MOVE) {
                drawn = false;
                continue;
            }
            const QPointF here = picture.at(packet.x, packet.y) - origin;
            const double width = picture.pen.withPressure ? picture.penWidth(packet.pressure) : picture.pen.level;
            if (drawn)
                lines.push_back({last, here, width, picture.pen.colour.name()});
            last = here;
            drawn = true;
        }
        return lines;
    }

    // Saves and reads the lines back from a well-formed file.
    SvgFile saved(int dpiLevel = IDLI_150DPI) const
    {
        EXPECT_EQ(files.save(pad, ITI_SVG, "sig.svg", dpiLevel), ARI_SUCCESS);
        outputOf("xmllint", {"--noout", files.path("sig.svg")});
        return readSvg(files.bytes("sig.svg"));
    }

    OpenPad pad;
    InkPicture picture;
    SavedFiles files;
    std::vector<KVSIM_PACKET> packets;
};

INSTANTIATE_TEST_SUITE_P(AllPads, SvgFiles, testing::ValuesIn(allPads()), padCaseName);

TEST_P(SvgFiles, HoldALineForEachMoveWithTheWidthOfItsEnd)
{
    sign(scribble(pad.type(), 1, 12));
    sign(scribble(pad.type(), 2, 7));
    for (const auto &[level, dotsPerInch] : {std::pair(IDLI_150DPI, 150), std::pair(IDLI_300DPI, 300)}) {
        const SvgFile file = saved(level);
        expectLines(file.lines, expected());
        EXPECT_EQ(file.lines.size(), 19u);
        EXPECT_NEAR(file.widthMm, kWidth * 25.4 / dotsPerInch, 0.01);
        EXPECT_NEAR(file.heightMm, kHeight * 25.4 / dotsPerInch, 0.01);
        EXPECT_EQ(file.viewBox, QRectF(0, 0, kWidth, kHeight));
    }
}

TEST_P(SvgFiles, FollowThePenAsItIsWhenTheyAreSaved)
{
    sign(scribble(pad.type(), 3, 6));
    for (const PenSettings &pen :
        {PenSettings{7, true, QColor(10, 200, 30)}, PenSettings{9, false, QColor(200, 1, 2)}}) {
        picture.pen = pen;
        setPen(pad, pen);
        expectLines(saved().lines, expected());
    }
}

TEST_P(SvgFiles, AreShiftedAndCutByTheClipRectangle)
{
    sign(stroke(pad.type(), {{0.3, 0.4, 0.3}, {0.5, 0.6, 0.2}, {0.55, 0.45, 0.3}}));
    QRect ink;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            if (picture.image.pixel(x, y) != 0xffffffff)
                ink |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 6, 9), 0);
    const SvgFile file = saved();
    expectLines(file.lines, expected({ink.left() - 6.0, ink.top() - 9.0}));
    EXPECT_EQ(file.viewBox, QRectF(0, 0, ink.width() + 12, ink.height() + 18));
    EXPECT_NEAR(file.widthMm, (ink.width() + 12) * 25.4 / 150, 0.01);
}

TEST_P(SvgFiles, OfSinglePointsHoldNoLine)
{
    for (int i = 0; i < 3; ++i)
        sign(stroke(pad.type(), {{0.2 + 0.1 * i, 0.5, 0.5}}));
    const SvgFile file = saved();
    EXPECT_TRUE(file.lines.empty());
    EXPECT_EQ(file.viewBox, QRectF(0, 0, kWidth, kHeight));
}

TEST_P(SvgFiles, JoinAStrokeThatATapInterruptedToTheNext)
{
    // Such a stroke has no closing point: the line to the next pen down is drawn here, though not on the canvas.
    std::vector<KVSIM_PACKET> cut = stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}});
    cut.back().status = KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON;
    sign(cut);
    packets.pop_back();
    sign(stroke(pad.type(), {{0.6, 0.6, 0.4}, {0.7, 0.6, 0.4}}));
    EXPECT_EQ(expected().size(), 3u);
    expectLines(saved().lines, expected());
}

TEST_P(SvgFiles, AreWhatAPlainGeneratorWrites)
{
    sign(scribble(pad.type(), 4, 15));
    sign(stroke(pad.type(), {{0.5, 0.5, 0.5}, {0.5, 0.5, 0.5}}));
    picture.pen.colour = QColor(1, 2, 250);
    setPen(pad, picture.pen);
    for (const auto &[level, dotsPerInch] : {std::pair(IDLI_150DPI, 150), std::pair(IDLI_300DPI, 300)}) {
        ASSERT_EQ(files.save(pad, ITI_SVG, "sig.svg", level), ARI_SUCCESS);
        writeSvg(files.path("own.svg"), {kWidth, kHeight}, dotsPerInch, expected());
        EXPECT_EQ(files.bytes("sig.svg"), files.bytes("own.svg"));
    }
}

TEST_P(SvgFiles, LookLikeTheCanvas)
{
    sign(stroke(pad.type(), {{.1, .5, .1}, {.2, .2, .3}, {.3, .7, .2}, {.45, .3, .4}, {.6, .6, .2}, {.9, .4, .5}}));
    ASSERT_EQ(files.save(pad, ITI_SVG, "sig.svg"), ARI_SUCCESS);
    outputOf("rsvg-convert",
        {"-w", QString::number(kWidth), "-h", QString::number(kHeight), "-b", "white", "-o", files.path("own.png"),
            files.path("sig.svg")});
    const QImage drawn(files.path("own.png"));
    ASSERT_EQ(drawn.size(), QSize(kWidth, kHeight));
    int unlike = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x)
            unlike += std::abs(qGray(drawn.pixel(x, y)) - qGray(picture.image.pixel(x, y))) > 100;
    }
    EXPECT_LT(unlike, inkPixels(picture.image) / 50);
    EXPECT_GT(inkPixels(picture.image), 500);
}

TEST_P(SvgFiles, WriteTheirLogLinesAlsoWhereNoFileCanBeWritten)
{
    sign(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    const LogTail log;
    {
        const LogOn logOn;
        EXPECT_EQ(files.save(pad, ITI_SVG, "sig.svg", IDLI_300DPI), ARI_SUCCESS);
        EXPECT_EQ(files.save(pad, ITI_SVG, "no/such/directory", IDLI_150DPI), ARI_SUCCESS);
    }
    const std::string scope = GetParam().className() + std::string("::");
    EXPECT_EQ(messagesOf(log, scope + "SaveDrawingImageAsSVGFile()"),
        (Lines{"<%ld>-enter, nDPI=300", "<%ld>-nInkCount=3", "<%ld>-leave !", "<%ld>-enter, nDPI=150",
            "<%ld>-nInkCount=3", "<%ld>-leave !"}));
}

// The class that logs each mapping does so even when the drawing cannot be written: an enter and a leave line for each
// end of the segment.
TEST_P(SvgFiles, MapTheirPointsAlsoWhereNoFileCanBeWritten)
{
    sign(stroke(pad.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    const std::string key = GetParam().className() + std::string("::ConvertSignRawDataToSignWndData()");
    const auto mapped = [&](const char *name) {
        const LogTail log;
        {
            const LogOn logOn;
            EXPECT_EQ(files.save(pad, ITI_SVG, name), ARI_SUCCESS);
        }
        return messagesOf(log, key);
    };
    const Lines written = mapped("sig.svg");
    EXPECT_EQ(written.size(), key == "CS310XSignWidget::ConvertSignRawDataToSignWndData()" ? 4u : 0u);
    EXPECT_EQ(mapped("no/such/directory"), written);
}

// A canvas that cannot be had is 0 by 0 pixels.
TEST_P(SvgFiles, OfACanvasWithoutPixelsHaveNoSize)
{
    pad->UnInitialDevice(pad.type());
    for (const QSize &size : {QSize(67, 0), QSize(0, 67), QSize(0, 0)}) {
        OpenPad flat(GetParam(), size.width(), size.height());
        flat.driver.send(stroke(flat.type(), {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
        for (const bool clipped : {false, true}) {
            EXPECT_EQ(flat->SetSaveClipImageMargin(flat.type(), clipped, 3, 3), 0);
            ASSERT_EQ(files.save(flat, ITI_SVG, "sig.svg"), ARI_SUCCESS);
            char *text = flat->GetSVGImageBase64Data(flat.type());
            for (const QByteArray &svg : {files.bytes("sig.svg"), QByteArray::fromBase64(text)})
                EXPECT_TRUE(svg.contains("width=\"0mm\" height=\"0mm\"")) << svg.left(200).toStdString();
            flat->FreeSVGImageBase64Data(flat.type(), text);
        }
    }
}

} // namespace
