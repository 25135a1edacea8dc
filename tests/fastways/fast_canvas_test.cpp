// Segments drawn with the kept painter, and merges of a segment's box, give the pixels of the plain way.
#include "cs300signobj.h"
#include "cs300signwidget.h"
#include "cs310xsignobj.h"
#include "openinstance.h"
#include "recordedink.h"

#include <cmath>

namespace {

class FastSegments : public testing::TestWithParam<PadCase>
{
};

TEST_P(FastSegments, EqualAPainterASegment)
{
    for (const std::string &name : recordingNames()) {
        OpenPad pad(GetParam(), 431, 207);
        ASSERT_TRUE(pad.isOpen());
        const auto packets = recordedPackets(name, pad.type());
        pad->SetPenColor(pad.type(), 20, 60, 200);
        pad.driver.send(packets);
        QImage expected = whiteCanvas({431, 207});
        for (const plain::Segment &segment : segmentsOf(packets, pad.type(), expected.size()))
            drawSegmentOrDot(expected, segment, QColor(20, 60, 200));
        EXPECT_EQ(pad.canvas(), expected) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Pads, FastSegments, testing::ValuesIn(allPads()), padCaseName);

// Drawing never changes another image that shares the canvas's memory, or one that replaced it.
TEST(FastSegmentsOnOneInstance, LeaveCopiesAlone)
{
    CS300SignObj pad(300, 100);
    pad.StartSignOnCanvas(50, 50, 5);
    const QImage held = pad.m_canvas;
    const QImage before = held.copy();
    pad.StartSignOnCanvas(90, 20, 5);
    EXPECT_EQ(held, before);
    EXPECT_NE(pad.m_canvas, before);
    QImage glassy(300, 100, QImage::Format_ARGB32);
    glassy.fill(Qt::transparent);
    pad.m_canvas = glassy;
    glassy = QImage();
    QImage expected(300, 100, QImage::Format_ARGB32);
    expected.fill(Qt::transparent);
    plain::drawSegment(expected, {{90, 20}, {10, 80}, 5}, Qt::black);
    pad.StartSignOnCanvas(10, 80, 5);
    EXPECT_EQ(pad.m_canvas, expected);
}

// Clearing a canvas while somebody holds a copy detaches it: its old memory is freed with the copy.
TEST(FastSegmentsOnOneInstance, FollowTheCanvasToOtherMemory)
{
    CS300SignObj pad(300, 100);
    pad.StartSignOnCanvas(50, 50, 5);
    {
        const QImage held = pad.m_canvas;
        pad.ClearSignCanvas();
    }
    QImage expected = whiteCanvas({300, 100});
    plain::drawSegment(expected, {{50, 50}, {90, 20}, 5}, Qt::black);
    pad.StartSignOnCanvas(90, 20, 5);
    EXPECT_EQ(pad.m_canvas, expected);
}

// Qt paints nothing behind an opaque canvas, but the window must show through a translucent one.
TEST(FastRepaint, ShowsWhatIsBehindACanvasThatIsNotOpaque)
{
    QWidget window;
    window.setStyleSheet("background: #00ff00");
    window.resize(80, 60);
    auto *const pad = new CS300SignWidget(&window);
    pad->setGeometry(10, 10, 60, 40);
    window.show();
    const auto shown = [&window] {
        QCoreApplication::processEvents();
        return window.grab().toImage();
    };
    const QRgb behind = shown().pixel(5, 5);
    EXPECT_EQ(behind, 0xff00ff00);
    EXPECT_TRUE(pad->testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_EQ(shown().pixel(40, 30), 0xffffffff);
    pad->m_canvas.setPixel(30, 20, 0);
    pad->repaint();
    EXPECT_FALSE(pad->testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_EQ(shown().pixel(40, 30), behind);
    EXPECT_EQ(shown().pixel(41, 30), 0xffffffff);
    pad->m_canvas = QImage();
    pad->update();
    EXPECT_EQ(shown().pixel(41, 30), behind);
    pad->resize(61, 40);
    EXPECT_EQ(shown().pixel(41, 30), 0xffffffff);
    EXPECT_TRUE(pad->testAttribute(Qt::WA_OpaquePaintEvent));
}

QImage layerWithRidges(const QSize &size)
{
    QImage layer = whiteCanvas(size);
    for (int y = 0; y < std::min(288, size.height()); ++y) {
        for (int x = 0; x < std::min(208, size.width()); ++x) {
            if (std::sin(std::hypot(x - 90, y - 140) * 0.8) > 0.2)
                layer.setPixel(x, y, 0xffff0000);
        }
    }
    return layer;
}

QRectF centred(const QSize &size)
{
    const double height = size.height() * 0.5;
    const double width = height * 208 / 288;
    return {(size.width() - width) / 2, (size.height() - height) / 2, width, height};
}

class FastMerge : public testing::Test
{
protected:
    void draw(double x, double y, double width)
    {
        drawSegmentOrDot(ink, {last, {x, y}, width}, Qt::black);
        last = {x, y};
        pad.StartSignOnCanvas(x, y, width);
    }
    void expectMerged(const char *when)
    {
        QImage expected;
        plain::merge(expected, ink, layer, target);
        EXPECT_EQ(pad.m_canvas, expected) << when;
    }

    const QSize size{401, 299};
    CS310XSignObj pad{size.width(), size.height()};
    QImage ink = whiteCanvas(size);
    QImage layer = whiteCanvas(size);
    QRectF target = centred(size);
    QPointF last{0, 0};
};

TEST_F(FastMerge, EqualsTheWholeMergeAfterEverySegment)
{
    for (int i = 0; i < 300; ++i) {
        if (i == 60)
            layer = pad.m_FPOnlyCanvas = layerWithRidges(size);
        if (i == 200) {
            pad.m_nNewFPProcessActionID = NFPPA_SIGN_FP_SAME_WIDGET;
            pad.m_NewFPRect = QRect(20, 30, 111, 77);
            target = QRectF(20, 30, 111, 77);
        }
        draw(200 + 190 * std::sin(i * 0.31), 150 + 140 * std::cos(i * 0.17), i % 23);
        expectMerged("after a segment");
    }
    draw(200, 150, 50000);
    expectMerged("after a pen wider than the canvas");
    draw(-500, 9000, 3);
    expectMerged("after a segment outside");
}

// Packets are clamped to the canvas, but a direct call of the member may pass coordinates that overflow an int.
TEST_F(FastMerge, EqualsTheWholeMergeOfSegmentsThatComeFromAfar)
{
    layer = pad.m_FPOnlyCanvas = layerWithRidges(size);
    for (const double far : {4e4, 1e6, 1.2e9, 3e9, 5e14}) {
        draw(200, 100, 5);
        draw(far, 150, 5);
        expectMerged("to the right");
        draw(-far, 170, 5);
        expectMerged("across");
        draw(100, 100, 5);
        expectMerged("back");
        draw(110, far, 5);
        draw(120, -far, 5);
        expectMerged("up and down");
    }
}

TEST_F(FastMerge, SeesChangesThatDoNotComeFromSegments)
{
    layer = pad.m_FPOnlyCanvas = layerWithRidges(size);
    draw(100, 100, 9);
    expectMerged("before");
    pad.m_SignCanvas.setPixel(5, 5, 0xff00ff00);
    ink.setPixel(5, 5, 0xff00ff00);
    draw(120, 130, 9);
    expectMerged("ink changed elsewhere");
    pad.m_canvas.fill(Qt::blue);
    draw(140, 130, 9);
    expectMerged("shown canvas changed");
    pad.ClearSignCanvas();
    ink.fill(Qt::white);
    layer.fill(Qt::white);
    draw(10, 130, 9);
    expectMerged("cleared");
}

TEST_F(FastMerge, TakesTheWholeWayWithInkThatIsNotOpaque)
{
    layer = pad.m_FPOnlyCanvas = layerWithRidges(size);
    pad.m_SignCanvas.fill(QColor(0, 0, 200, 40));
    ink.fill(QColor(0, 0, 200, 40));
    for (int i = 0; i < 5; ++i) {
        draw(60 * i, 50 * i, 7);
        expectMerged("glassy ink");
    }
}

} // namespace
