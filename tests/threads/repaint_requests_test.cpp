// A widget's repaint is asked for from the driver's thread, runs on the GUI thread, and one request waits at a time.
#include "patience.h"
#include "penthread.h"

#include <QScreen>
#include <QThread>

namespace {

/// Counts what reaches a widget: posted calls and paints, and on which thread.
class Watcher : public QObject
{
public:
    explicit Watcher(QObject *watched) { watched->installEventFilter(this); }

    int paints = 0;
    int postedCalls = 0;
    bool onGuiThread = true;

private:
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        postedCalls += event->type() == QEvent::MetaCall;
        onGuiThread = onGuiThread && QThread::currentThread() == qApp->thread();
        return false;
    }
};

std::vector<PadCase> widgetPads()
{
    std::vector<PadCase> pads;
    for (const Family &family : kFamilies)
        pads.push_back({&family, false});
    return pads;
}

class RepaintRequests : public testing::TestWithParam<PadCase>
{
protected:
    RepaintRequests()
        : pad(GetParam())
        , watcher(pad.widget())
    {
    }

    /// What stands on the screen at the widget's place: nothing is painted for this.
    QImage shown() const
    {
        const QPixmap screen = pad.window()->screen()->grabWindow(pad.window()->winId());
        return screen.copy(pad.widget()->geometry()).toImage().convertToFormat(QImage::Format_ARGB32);
    }

    std::vector<KVSIM_PACKET> zigzag(double left, double right) const
    {
        std::vector<Share> shares;
        for (int i = 0; i < 300; ++i)
            shares.push_back({i % 2 == 0 ? left : right, i / 300.0, 0.2});
        return stroke(pad.type(), shares);
    }

    OpenPad pad;
    Watcher watcher;
};

} // namespace

TEST_P(RepaintRequests, AreMergedWhileTheGuiThreadIsBusy)
{
    pad.driver.send(zigzag(0.1, 0.9)); // the GUI thread waits here for all 300 segments
    EXPECT_EQ(watcher.paints, 0) << "nothing is painted on the driver's thread";
    settle();
    EXPECT_EQ(watcher.postedCalls, 1) << "one request for all segments";
    EXPECT_EQ(watcher.paints, 1);
    EXPECT_TRUE(watcher.onGuiThread);
    EXPECT_EQ(shown(), pad.canvas());
}

TEST_P(RepaintRequests, AreMadeAnewAfterEachPaint)
{
    for (int i = 1; i <= 20; ++i) {
        pad.driver.send(stroke(pad.type(), {{0.1, i / 25.0, 0.5}, {0.9, i / 25.0, 0.5}}));
        settle();
        EXPECT_EQ(watcher.paints, i);
    }
    EXPECT_EQ(watcher.postedCalls, 20);
}

TEST_P(RepaintRequests, ShowTheLastSegmentOfAnyBurst)
{
    for (int i = 0; i < 12; ++i) {
        PenThread pen(pad.driver, zigzag(0.07 * i, 0.07 * i + 0.1));
        while (pen.delivered() < 600)
            QApplication::processEvents();
        pen.stop();
        settle();
        ASSERT_EQ(shown(), pad.canvas()) << "burst " << i;
        pad->Clear(pad.type());
    }
    EXPECT_LE(watcher.postedCalls, watcher.paints) << "no request came to the queue beside another";
}

TEST_P(RepaintRequests, PileUpNowhereWhileNoEventLoopRuns)
{
    for (int i = 0; i < 10; ++i) {
        pad.driver.send(zigzag(0.1, 0.9));
        pad->Clear(pad.type());
    }
    settle();
    EXPECT_EQ(watcher.postedCalls, 1);
}

TEST_P(RepaintRequests, WaitForAHiddenWidgetToBeShownAgain)
{
    pad.widget()->hide();
    pad.driver.send(zigzag(0.1, 0.9));
    settle();
    EXPECT_EQ(watcher.paints, 0);
    pad.widget()->show();
    settle();
    EXPECT_EQ(shown(), pad.canvas());
    pad.driver.send(zigzag(0.4, 0.6));
    settle();
    EXPECT_EQ(shown(), pad.canvas());
}

TEST_P(RepaintRequests, ShowAClearAtOnceOnItsOwnThread)
{
    pad.driver.send(zigzag(0.1, 0.9));
    settle();
    pad->Clear(pad.type());
    settle();
    QImage white(400, 200, QImage::Format_ARGB32);
    white.fill(Qt::white);
    EXPECT_EQ(shown(), white);
}

// The images of a large canvas follow each other without a gap, each under the canvas lock.
TEST(RepaintRequestsDuringALivePush, AreMetBetweenItsImages)
{
    static std::atomic<int> pushes;
    pushes = 0;
    OpenPad pad({&kS210Family, false}, 1920, 1080);
    Watcher watcher(pad.widget());
    ASSERT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_PNG, [](char *) { ++pushes; }));
    std::vector<Share> shares;
    for (int i = 0; i < 42; ++i)
        shares.push_back({0.3 + i / 100.0, i % 2 == 0 ? 0.4 : 0.5, 0.3});
    const auto packets = stroke(pad.type(), shares);
    std::atomic<bool> done{false};
    std::thread driver([&] {
        while (!done)
            pad.driver.send(packets);
    });
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while ((pushes < 40 || watcher.paints < 10) && std::chrono::steady_clock::now() < end)
        QApplication::processEvents();
    done = true;
    driver.join();
    EXPECT_GE(pushes, 40);
    EXPECT_GE(watcher.paints, 10);
}

INSTANTIATE_TEST_SUITE_P(WidgetPads, RepaintRequests, testing::ValuesIn(widgetPads()), padCaseName);
