// The application destroys the window that contains the open pad's widget.
#include "penthread.h"

namespace {

class HostWindowDestroyed : public testing::TestWithParam<const Family *>
{
protected:
    void open()
    {
        window = std::make_unique<QWidget>();
        window->resize(300, 200);
        window->show();
        ASSERT_TRUE(family.InitialDevice(family.type, window.get(), 10, 10, 200, 100));
        settle();
    }

    void expectClosed()
    {
        EXPECT_FALSE(driver.isOpen());
        EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), ARI_INK_EMPTY);
        EXPECT_EQ(family.Clear(family.type), ARI_FAIL) << "no instance is open";
        EXPECT_EQ(family.UnInitialDevice(family.type), ARI_SUCCESS);
    }

    void expectWorks()
    {
        driver.send(stroke(family.type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
        EXPECT_EQ(family.GetTotalInkPointsNumber(family.type), 3);
    }

    void TearDown() override
    {
        family.UnInitialDevice(family.type);
        settle();
    }

    const Family &family = *GetParam();
    SimulatedDriver driver;
    std::unique_ptr<QWidget> window;
};

} // namespace

TEST_P(HostWindowDestroyed, EndsTheWorkWithThePad)
{
    open();
    driver.send(stroke(family.type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    driver.forgetCalls();
    window.reset();
    EXPECT_EQ(driver.calls(), family.hasScreen ? "OpenDeviceLCD 0\nUnInitial\n" : "ClearDeviceContent\nUnInitial\n");
    expectClosed();
}

TEST_P(HostWindowDestroyed, EndsCleanlyDuringABurst)
{
    for (int i = 0; i < 5; ++i) {
        open();
        PenThread pen(driver, busyPackets(family.type));
        pen.waitFor(100);
        window.reset();
        expectClosed();
        pen.stop();
        settle(); // what was posted to the widget went with it
    }
    open();
    expectWorks();
}

TEST_P(HostWindowDestroyed, EndsCleanlyDuringABurstWithEventsUnderWay)
{
    open();
    PenThread pen(driver, busyPackets(family.type));
    for (long before = 0; before < 500; before = pen.delivered())
        QApplication::processEvents();
    window.reset();
    pen.stop();
    expectClosed();
}

TEST_P(HostWindowDestroyed, BeforeTheClosedWidgetWasDeleted)
{
    open();
    family.UnInitialDevice(family.type);
    window.reset();
    settle();
    expectClosed();
}

TEST_P(HostWindowDestroyed, AfterTheNextPadWasOpened)
{
    open();
    family.UnInitialDevice(family.type);
    const std::unique_ptr<QWidget> first = std::move(window);
    open();
    PenThread pen(driver, busyPackets(family.type));
    pen.waitFor(100);
    delete first->findChild<QWidget *>(); // if the event loop has not done so
    pen.stop();
    family.Clear(family.type);
    expectWorks();
}

// A call without a parent marks the open widget as headless; the mark goes with the widget.
TEST_P(HostWindowDestroyed, TakesTheMarkOfAMixedCallAlong)
{
    open();
    ASSERT_TRUE(family.InitialDevice(family.type, nullptr, 0, 0, 30, 20));
    window.reset();
    EXPECT_FALSE(driver.isOpen());
    open();
    EXPECT_NE(window->findChild<QWidget *>(), nullptr) << "the next pad with a parent stands in a widget";
    expectWorks();
}

INSTANTIATE_TEST_SUITE_P(WidgetPads, HostWindowDestroyed,
    testing::Values(&kS210Family, &kS300Family, &kS310XFamily, &kR800Family, &kM450Family),
    [](const auto &row) { return row.param->widgetClass; });
