// The mouse draws nothing on a signing widget: with the left button it only repaints it.
#include "openpad.h"

#include <QMouseEvent>

namespace {

struct PaintCount : QObject
{
    int paints = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

class Mouse : public testing::TestWithParam<Family>
{
protected:
    OpenPad pad{PadCase{&GetParam(), false}};
    PaintCount count;

    void SetUp() override
    {
        pad.driver.send(stroke(pad.type(), {{0.2, 0.3, 0.5}, {0.7, 0.6, 0.5}}));
        settle();
        pad.widget()->installEventFilter(&count);
    }

    /// Repaints that the event causes before it returns.
    int paintsAt(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held)
    {
        settle();
        count.paints = 0;
        QMouseEvent event(type, QPointF(50, 60), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(pad.widget(), &event);
        return count.paints;
    }
};

TEST_P(Mouse, RepaintsAtOnceWhileTheLeftButtonIsHeld)
{
    EXPECT_EQ(paintsAt(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton), 1);
    EXPECT_EQ(paintsAt(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton), 1);
    EXPECT_EQ(paintsAt(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton | Qt::RightButton), 1);
    EXPECT_EQ(paintsAt(QEvent::MouseButtonPress, Qt::RightButton, Qt::LeftButton | Qt::RightButton), 1);
}

TEST_P(Mouse, DoesNothingWithoutTheLeftButton)
{
    EXPECT_EQ(paintsAt(QEvent::MouseButtonPress, Qt::RightButton, Qt::RightButton), 0);
    EXPECT_EQ(paintsAt(QEvent::MouseMove, Qt::NoButton, Qt::NoButton), 0);
    EXPECT_EQ(paintsAt(QEvent::MouseMove, Qt::NoButton, Qt::MiddleButton), 0);
    EXPECT_EQ(paintsAt(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton), 0);
}

TEST_P(Mouse, NeitherDrawsNorStores)
{
    const QImage before = pad.canvas();
    const QImage shownBefore = pad.widget()->grab().toImage();
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseMove})
        paintsAt(type, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 3);
    EXPECT_EQ(pad.canvas(), before);
    EXPECT_EQ(pad.widget()->grab().toImage(), shownBefore);
}

INSTANTIATE_TEST_SUITE_P(Families, Mouse, testing::ValuesIn(kFamilies),
    [](const testing::TestParamInfo<Family> &row) { return std::string(row.param.widgetClass); });

} // namespace
