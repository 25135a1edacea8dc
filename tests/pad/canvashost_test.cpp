// The canvas of an instance: creating, resizing, painting, and the mouse.
#include "canvashost.h"
#include "insidepads.h"
#include "logmessages.h"
#include "mutexlock.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace {

constexpr const char *kInThreadLog = "/tmp/kvsignpadsdk_inthread.log";

class CanvasHost : public testing::TestWithParam<PadCase>
{
protected:
    std::string key(const char *member) const { return std::string(GetParam().className()) + "::" + member; }
};

QImage white(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::white);
    return image;
}

/// No two pixels alike, so that a picture out of place or scaled shows.
QImage pattern(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x / 256 * 16 + y / 256) % 256));
    }
    return image;
}

template <class Pad>
void resizeTo(Pad &pad, int width, int height)
{
    pad.resize(width, height);
    QResizeEvent resized(pad.size(), QSize());
    QCoreApplication::sendEvent(&pad, &resized);
}

/// What a widget shows, as its canvas would be.
QImage shown(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(ClearCanvas, MakesAWhiteImageInPlaceOfTheOldOne)
{
    QImage image = pattern(7, 9);
    canvashost::clearCanvas(image, 31, 17);
    EXPECT_EQ(image.format(), QImage::Format_ARGB32);
    EXPECT_EQ(image.size(), QSize(31, 17));
    for (int y = 0; y < 17; ++y) {
        for (int x = 0; x < 31; ++x)
            ASSERT_EQ(image.pixel(x, y), 0xffffffffU);
    }
}

TEST(ClearCanvas, GivesANullImageWhereNoneCanBeHad)
{
    for (const QSize &size : {QSize(0, 0), QSize(0, 10), QSize(10, 0), QSize(-1, 10), QSize(10, -1),
             QSize(INT_MIN, INT_MIN), QSize(INT_MAX, INT_MAX), QSize(INT_MAX, 1), QSize(30000, 30000)}) {
        QImage image = pattern(7, 9);
        canvashost::clearCanvas(image, size.width(), size.height());
        EXPECT_TRUE(image.isNull()) << size.width() << "x" << size.height();
    }
}

TEST_P(CanvasHost, StartsWhite)
{
    withNewInstance(GetParam(), 123, 45, [](auto &pad) {
        EXPECT_EQ(pad.m_canvas, white(123, 45));
        EXPECT_EQ(pad.m_canvas.format(), QImage::Format_ARGB32);
    });
    withClass(GetParam(), [](auto kind) {
        using Pad = typename decltype(kind)::Type;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            QWidget parent;
            auto *pad = new Pad(&parent);
            EXPECT_EQ(pad->m_canvas, white(pad->width(), pad->height())) << "before any resize";
        }
    });
}

TEST_P(CanvasHost, ResizingKeepsTheTopLeftUnscaled)
{
    withNewInstance(GetParam(), 300, 150, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            const QImage before = pattern(300, 150);
            for (const QSize &size :
                {QSize(300, 150), QSize(310, 170), QSize(200, 100), QSize(400, 90), QSize(60, 400), QSize(1, 1)}) {
                resizeTo(pad, 300, 150);
                pad.m_canvas = before;
                resizeTo(pad, size.width(), size.height());
                QImage expected = white(size.width(), size.height());
                for (int y = 0; y < std::min(150, size.height()); ++y) {
                    for (int x = 0; x < std::min(300, size.width()); ++x)
                        expected.setPixel(x, y, before.pixel(x, y));
                }
                EXPECT_EQ(pad.m_canvas, expected) << size.width() << "x" << size.height();
                EXPECT_EQ(pad.m_canvas.format(), QImage::Format_ARGB32);
            }
        }
    });
}

TEST_P(CanvasHost, ResizingEmptiesTheLayersOfAFingerprintPad)
{
    withNewInstance(GetParam(), 300, 150, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (kHasFingerprint<Pad>) {
            EXPECT_EQ(pad.m_SignCanvas, white(300, 150));
            if constexpr (std::is_base_of_v<QWidget, Pad>) {
                pad.m_canvas = pattern(300, 150);
                pad.m_SignCanvas = pattern(300, 150);
                pad.m_FPOnlyCanvas = pattern(300, 150);
                resizeTo(pad, 350, 140);
                EXPECT_EQ(pad.m_SignCanvas, white(350, 140));
                EXPECT_EQ(pad.m_FPOnlyCanvas, white(208, 288));
                EXPECT_EQ(pad.m_canvas.pixel(299, 139), pattern(300, 150).pixel(299, 139));
            } else {
                EXPECT_EQ(pad.m_FPOnlyCanvas, white(300, 150));
            }
        }
    });
}

TEST_P(CanvasHost, AResizeThatComesToNothingLeavesANullCanvasAndRecovers)
{
    withNewInstance(GetParam(), 300, 150, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            pad.m_canvas = pattern(300, 150);
            resizeTo(pad, 0, 0);
            EXPECT_TRUE(pad.m_canvas.isNull());
            resizeTo(pad, 40, 20);
            EXPECT_EQ(pad.m_canvas, white(40, 20));
        }
    });
}

TEST_P(CanvasHost, AResizeAsksForARepaintEvenOfTheSameSize)
{
    withNewInstance(GetParam(), 300, 150, [](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            struct Paints : QObject
            {
                int count = 0;
                bool eventFilter(QObject *, QEvent *event) override
                {
                    count += event->type() == QEvent::Paint;
                    return false;
                }
            } paints;
            pad.show();
            settle();
            pad.installEventFilter(&paints);
            settle();
            EXPECT_EQ(paints.count, 0);
            QResizeEvent resized(pad.size(), pad.size()); // Qt repaints by itself only what it has resized itself
            QCoreApplication::sendEvent(&pad, &resized);
            settle();
            EXPECT_EQ(paints.count, 1);
        }
    });
}

TEST_P(CanvasHost, PaintingShowsTheCanvasAtTheTopLeft)
{
    withNewInstance(GetParam(), 300, 150, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            pad.m_canvas = pattern(300, 150);
            EXPECT_EQ(shown(pad), pattern(300, 150));
            pad.m_canvas = QImage();
            EXPECT_NE(shown(pad), pattern(300, 150));
        }
    });
}

TEST_P(CanvasHost, PaintingWritesToTheLogOfThreads)
{
    withNewInstance(GetParam(), 30, 15, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            const LogTail log;
            const LogTail inThread(kInThreadLog);
            {
                const LogOn on;
                shown(pad);
            }
            EXPECT_EQ(messagesOf(inThread, key("paintEvent()")), (Lines{"<%ld>-Enter...", "<%ld>-leave !"}));
            EXPECT_EQ(messagesOf(log, key("paintEvent()")), Lines());
        }
    });
}

/// Whether the call came back only after another thread had let go of the canvas, and let go of it itself.
template <class Pad, class Call>
void expectWaitsForTheCanvas(Pad &pad, Call call)
{
    std::atomic<bool> held{false};
    std::atomic<bool> released{false};
    std::thread holder([&] {
        const MutexLock locked(pad.m_mutexUpdateCanvas);
        held = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        released = true;
    });
    while (!held)
        std::this_thread::yield();
    call();
    EXPECT_TRUE(released);
    holder.join();
    ASSERT_TRUE(pad.m_mutexUpdateCanvas.tryLock());
    pad.m_mutexUpdateCanvas.unlock();
}

TEST_P(CanvasHost, DrawingClearingPaintingAndResizingWaitForTheCanvas)
{
    withNewInstance(GetParam(), 30, 15, [&](auto &pad) {
        using Pad = std::decay_t<decltype(pad)>;
        expectWaitsForTheCanvas(pad, [&] { pad.StartSignOnCanvas(5, 5, 1); });
        expectWaitsForTheCanvas(pad, [&] { pad.ClearSignCanvas(); });
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            pad.show(); // a hidden widget that is grabbed is resized too, which waits as well
            settle();
            expectWaitsForTheCanvas(pad, [&] { pad.repaint(); });
            expectWaitsForTheCanvas(pad, [&] { resizeTo(pad, 31, 16); });
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AllPads, CanvasHost, testing::ValuesIn(allPads()), padCaseName);

} // namespace
