// The shown widget: where it is put, that strokes reach the screen, and what the mouse does.
#include "logmessages.h"
#include "openpad.h"

#include <QMouseEvent>

namespace {

class CanvasWidget : public testing::TestWithParam<PadCase>
{
protected:
    std::string key(const char *member) const { return std::string(GetParam().className()) + "::" + member; }
};

/// Counts paint events from outside.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// Paint events that one mouse event forces before anything else runs.
int paintsAfter(QWidget *widget, QEvent::Type kind, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    settle();
    PaintCounter counter(widget);
    QMouseEvent event(kind, QPointF(5, 5), QPointF(5, 5), QPointF(5, 5), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
    return counter.count;
}

TEST_P(CanvasWidget, IsShownAtThePlaceThatWasAskedFor)
{
    OpenPad pad(GetParam(), 400, 200);
    if (GetParam().headless) {
        EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
        return;
    }
    ASSERT_NE(pad.widget(), nullptr);
    EXPECT_TRUE(pad.widget()->isVisible());
    EXPECT_EQ(pad.widget()->geometry(), QRect(10, 10, 400, 200));
    EXPECT_EQ(pad.widget()->parentWidget(), pad.window());
}

TEST_P(CanvasWidget, ShowsEachStrokeSoonAfterItIsDrawn)
{
    OpenPad pad(GetParam(), 400, 200);
    if (GetParam().headless)
        return;
    for (int line = 1; line <= 3; ++line) {
        PaintCounter counter(pad.widget());
        pad.driver.send(stroke(pad.type(), {{0.1, 0.25 * line, 0.5}, {0.9, 0.25 * line, 0.5}}));
        EXPECT_EQ(counter.count, 0) << "not on the driver's thread";
        settle();
        EXPECT_GE(counter.count, 1);
        const QImage canvas = pad.canvas();
        EXPECT_EQ(canvas.pixelColor(200, 50 * line), QColor(Qt::black));
        EXPECT_EQ(pad.widget()->grab().toImage().convertToFormat(QImage::Format_ARGB32), canvas);
    }
    PaintCounter counter(pad.widget());
    pad->Clear(pad.type());
    settle();
    EXPECT_GE(counter.count, 1);
    EXPECT_EQ(pad.widget()->grab().toImage().pixelColor(200, 50), QColor(Qt::white));
}

TEST_P(CanvasWidget, KeepsTheSignatureWhenItIsResized)
{
    OpenPad pad(GetParam(), 400, 200);
    if (GetParam().headless)
        return;
    pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    const QImage before = pad.canvas();
    const int points = pad->GetTotalInkPointsNumber(pad.type());
    pad.widget()->resize(500, 300);
    settle();
    EXPECT_EQ(pad.canvas().copy(0, 0, 400, 200), before);
    EXPECT_EQ(pad.canvas().pixelColor(450, 250), QColor(Qt::white));
    pad.widget()->resize(210, 110);
    settle();
    EXPECT_EQ(pad.canvas(), before.copy(0, 0, 210, 110));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), points);
    // Later strokes use the new size: the bottom border of the writing area is that of the canvas.
    pad->Clear(pad.type());
    pad.driver.send(stroke(pad.type(), {{0.0, 1.0, 0.5}, {1.0, 1.0, 0.5}}));
    EXPECT_EQ(pad.canvas().pixelColor(105, 109), QColor(Qt::black));
    EXPECT_EQ(pad.canvas().pixelColor(105, 50), QColor(Qt::white));
}

TEST_P(CanvasWidget, RepaintsAtOnceWhileTheLeftButtonIsHeld)
{
    OpenPad pad(GetParam(), 400, 200);
    if (GetParam().headless)
        return;
    QWidget *widget = pad.widget();
    const Qt::MouseButtons both = Qt::LeftButton | Qt::RightButton;
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), 1);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseButtonPress, Qt::RightButton, both), 1);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), 1);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseMove, Qt::NoButton, both), 1);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton), 0);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseButtonPress, Qt::MiddleButton, Qt::MiddleButton), 0);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseMove, Qt::NoButton, Qt::NoButton), 0);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseMove, Qt::NoButton, Qt::RightButton), 0);
    EXPECT_EQ(paintsAfter(widget, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), 0);
}

TEST_P(CanvasWidget, TheMouseNeitherDrawsNorStores)
{
    OpenPad pad(GetParam(), 400, 200);
    if (GetParam().headless)
        return;
    QWidget *widget = pad.widget();
    pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    const QImage before = pad.canvas();
    const QImage shownBefore = widget->grab().toImage();
    for (int x = 0; x < 400; x += 20) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(x, 100), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, QPointF(x + 5, 110), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &press);
        QCoreApplication::sendEvent(widget, &move);
    }
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 3);
    EXPECT_EQ(pad.canvas(), before);
    EXPECT_EQ(widget->grab().toImage(), shownBefore);
}

INSTANTIATE_TEST_SUITE_P(AllPads, CanvasWidget, testing::ValuesIn(allPads()), padCaseName);

} // namespace
