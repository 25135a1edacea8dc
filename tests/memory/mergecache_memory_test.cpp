// Without memory for the layer that speeds merges up, the merge works without it.
#include "failingmemory.h"
#include "handrunpad.h"
#include "recordedink.h"

#include "strokes.h"

#include <new>

namespace {

constexpr int kWidth = 700;
constexpr int kHeight = 500;

QImage redLayer()
{
    QImage layer = whiteCanvas({208, 288});
    for (int y = 0; y < 288; y += 3)
        for (int x = 0; x < 208; ++x)
            layer.setPixel(x, y, 0xffff0000);
    return layer;
}

const QRectF kTarget((kWidth - 250 * 208.0 / 288) * 0.5, 125, 250 * 208.0 / 288, 250);

bool isLayer(std::size_t bytes)
{
    return bytes >= std::size_t{kWidth} * kHeight * 4;
}

TEST(MergeWithoutMemoryForItsLayer, IsThatOfTheWholeCanvas)
{
    CS310XSignObj pad(kWidth, kHeight);
    pad.m_FPOnlyCanvas = redLayer();
    QImage ink = whiteCanvas({kWidth, kHeight});
    QPointF last{0, 0};
    pad.MergeSignCanvasAndFPCanvas();
    const int before = failingmemory::refusals();
    for (const QPointF &to : {QPointF(350, 250), QPointF(300, 200), QPointF(400, 260), QPointF(690, 490)}) {
        failingmemory::refuse(to.x() == 690 ? nullptr : isLayer); // and with it once there is some
        pad.StartSignOnCanvas(to.x(), to.y(), 7);
        failingmemory::refuse(nullptr);
        drawSegmentOrDot(ink, {last, to, 7}, Qt::black);
        last = to;
        QImage expected;
        plain::merge(expected, ink, redLayer(), kTarget);
        EXPECT_EQ(pad.m_canvas, expected) << to.x();
    }
    EXPECT_GT(failingmemory::refusals(), before);
}

/// Whichever allocation of a segment's merge fails, the next segment brings the whole ink into the canvas.
TEST(MergeWithoutMemoryForASegment, IsMadeUpForByTheNext)
{
    int missing = 0;
    bool failed = true;
    for (long n = 1; failed; ++n) {
        HandRunPad<CS310XSignObj> pad(kWidth, kHeight);
        pad->m_FPOnlyCanvas = redLayer();
        pad->MergeSignCanvasAndFPCanvas();
        const auto whole = [&pad] {
            QImage image;
            plain::merge(image, pad->m_SignCanvas, redLayer(), kTarget);
            return image;
        };
        const QPointF from(0, 0), to(350, 250);
        strokes::drawInk(*pad, from, to, 7);
        pad->m_dblLastSignWndX = to.x(); // so that the next segment's box has none of this one
        pad->m_dblLastSignWndY = to.y();
        pad->m_internals.mergeCache.segmentDrawn(MergeCache::boxOf(from, to, 7));
        failingmemory::failNth(n, failingmemory::Which::OneAlone, [] {});
        try {
            pad->MergeSignCanvasAndFPCanvas(); // which makes the layer
        } catch (const std::bad_alloc &) {
        }
        failed = failingmemory::stop();
        missing += pad->m_canvas != whole();
        pad->StartSignOnCanvas(400, 490, 7);
        EXPECT_EQ(pad->m_canvas, whole()) << "allocation " << n;
    }
    EXPECT_GT(missing, 0);
}

} // namespace
