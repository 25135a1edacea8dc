// Without memory for the layer that speeds merges up, the merge works without it.
#include "recordedink.h"

#include "cs310xsignobj.h"

#include <atomic>
#include <cstdlib>

extern "C" {
void *__libc_malloc(size_t size);
}

namespace {

std::atomic<size_t> most{SIZE_MAX}; ///< that an allocation may ask for
std::atomic<int> refused{0};

} // namespace

// Of the whole process. Images ask for their memory here.
extern "C" void *malloc(size_t size)
{
    if (size <= most)
        return __libc_malloc(size);
    ++refused;
    return nullptr;
}

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

TEST(MergeWithoutMemoryForItsLayer, IsThatOfTheWholeCanvas)
{
    CS310XSignObj pad(kWidth, kHeight);
    pad.m_FPOnlyCanvas = redLayer();
    QImage ink = whiteCanvas({kWidth, kHeight});
    const QRectF target((kWidth - 250 * 208.0 / 288) * 0.5, 125, 250 * 208.0 / 288, 250);
    QPointF last{0, 0};
    pad.MergeSignCanvasAndFPCanvas();
    most = kWidth * kHeight * 4 - 1;
    for (const QPointF &to : {QPointF(350, 250), QPointF(300, 200), QPointF(400, 260), QPointF(690, 490)}) {
        if (to.x() == 690)
            most = SIZE_MAX; // and with it once there is some
        pad.StartSignOnCanvas(to.x(), to.y(), 7);
        const size_t limit = most.exchange(SIZE_MAX);
        drawSegmentOrDot(ink, {last, to, 7}, Qt::black);
        last = to;
        QImage expected;
        plain::merge(expected, ink, redLayer(), target);
        EXPECT_EQ(pad.m_canvas, expected) << to.x();
        most = limit;
    }
    most = SIZE_MAX;
    EXPECT_GT(refused, 0);
}

} // namespace
