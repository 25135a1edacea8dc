// The window of kvsign replay: it draws each line at its time, and its keys pause, restart and close it.
#include "kvsign.h"

#include "modelrows.h"
#include "patience.h"
#include "progress.h"
#include "replay/replaywindow.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QThread>

namespace {

using namespace kvsign;

constexpr int kFirstLine = 1500; // when the first line is complete, in milliseconds from the start

class KvsignWindow : public Place
{
protected:
    void SetUp() override
    {
        write("a.ink",
            record({{400, 400, 900, false, 10000, 77}, {2300, 400, 900, false, 10000 + kFirstLine, 77},
                {2300, 1400, 900, false, 10001 + kFirstLine, 77}, {2300, 1400, 900, true, 10002 + kFirstLine, 77}}));
        m_settings.model = modelOfName("S300");
        m_settings.penWidth = 4;
        m_settings.part = QRectF(0, 0, 800, 452);
        m_input = std::make_unique<InkInput>(file("a.ink"), QString(), m_progress);
        m_window = std::make_unique<ReplayWindow>(*m_input, m_settings, 1, false);
        m_window->show();
    }

    void press(int key) const
    {
        QKeyEvent pressed(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(m_window.get(), &pressed);
    }

    static void letRun(int milliseconds)
    {
        QElapsedTimer running;
        running.start();
        while (!running.hasExpired(milliseconds)) {
            QApplication::processEvents();
            QThread::msleep(5);
        }
    }

    int ink() const { return inkPixels(m_window->grab(QRect(0, 0, 800, 452)).toImage()); }

    void waitForInk() const
    {
        QElapsedTimer waiting;
        waiting.start();
        while (ink() == 0 && waiting.elapsed() < std::chrono::milliseconds(kPatience).count())
            letRun(20);
        EXPECT_GT(ink(), 1000);
    }

    PictureSettings m_settings;
    Progress m_progress;
    std::unique_ptr<InkInput> m_input;
    std::unique_ptr<ReplayWindow> m_window;
};

TEST_F(KvsignWindow, StopsForAWhile)
{
    EXPECT_EQ(m_window->size().width(), 800);
    press(Qt::Key_Space);
    letRun(kFirstLine + 300);
    EXPECT_EQ(ink(), 0) << "it goes on although it is stopped";
    press(Qt::Key_Space);
    waitForInk();
}

TEST_F(KvsignWindow, BeginsAgainAndCloses)
{
    waitForInk();
    letRun(50);
    press(Qt::Key_R);
    EXPECT_EQ(ink(), 0);
    waitForInk();
    EXPECT_TRUE(m_window->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(m_window->failure(), nullptr);
}

TEST_F(KvsignWindow, ClosesWhenItsFileBreaks)
{
    write("a.ink", "!");
    press(Qt::Key_R);
    EXPECT_FALSE(m_window->isVisible());
    ASSERT_NE(m_window->failure(), nullptr);
    EXPECT_TRUE(m_window->failure()->message.contains("is not part of a Base64 text"));
}

} // namespace
