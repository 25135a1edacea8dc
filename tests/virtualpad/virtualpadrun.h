/// @file
/// A virtual pad's window and a program that signs on it, in one process: the program's calls run beside the window.
#ifndef VIRTUALPADRUN_H
#define VIRTUALPADRUN_H

#include "modelrows.h"
#include "openpad.h"
#include "padface.h"
#include "padwindow.h"

#include <QAction>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <chrono>
#include <cstring>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

class VirtualPad : public testing::Test
{
protected:
    VirtualPad()
    {
        setenv("KVSIM_RECORDING", "virtual", 1);
        setenv("XDG_RUNTIME_DIR", qPrintable(m_runtimeDirectory.path()), 1);
        takeEvents();
    }
    ~VirtualPad() override
    {
        if (m_isOpen)
            close();
        window.reset();
        settle();
    }

    void openWindow(const char *model = "S300")
    {
        window = std::make_unique<virtualpad::PadWindow>(*modelOfName(model));
        window->show();
        settle();
    }

    /// Does it on another thread, as another program would, while the window lives on.
    template <class Result>
    static Result beside(const std::function<Result()> &work)
    {
        Result result{};
        std::atomic<bool> done{false};
        std::thread thread([&] {
            result = work();
            done = true;
        });
        while (!done)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        thread.join();
        settle();
        return result;
    }

    bool open(const Family &opened)
    {
        family = &opened;
        m_isOpen = beside<bool>([&] { return opened.InitialDevice(opened.type, nullptr, 0, 0, 600, 300); });
        if (m_isOpen)
            opened.SignPadEventCallback(opened.type, [](int event) {
                const std::lock_guard lock(s_eventsLock);
                s_events.push_back(event);
            });
        return m_isOpen;
    }

    void close()
    {
        m_isOpen = false;
        EXPECT_EQ(beside<int>([&] { return family->UnInitialDevice(family->type); }), 0);
    }

    /// Waits, with the window alive, for something to become true.
    static bool until(const std::function<bool()> &condition, int timeoutMs = 60000)
    {
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < timeoutMs) {
            if (condition())
                return true;
            QTest::qWait(5);
        }
        return false;
    }

    virtualpad::PadFace *face() const { return window->face(); }

    /// A place of the writing area by its shares.
    QPoint place(double x, double y) const
    {
        const QRectF area = face()->writingArea();
        return QPointF(area.x() + x * area.width(), area.y() + y * area.height()).toPoint();
    }

    void press(const QPoint &at) const { QTest::mousePress(face(), Qt::LeftButton, Qt::NoModifier, at); }
    void release(const QPoint &at) const { QTest::mouseRelease(face(), Qt::LeftButton, Qt::NoModifier, at); }

    /// With the button down; QTest's own moves have none.
    void drag(const QPoint &at) const
    {
        QMouseEvent move(
            QEvent::MouseMove, at, face()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(face(), &move);
    }

    void click(const QRectF &area) const
    {
        press(area.center().toPoint());
        QTest::qWait(20);
        release(area.center().toPoint());
    }

    /// A stroke along a line, at a hand's pace. How long the pen was down for certain.
    std::chrono::nanoseconds write(double fromX, double fromY, double toX, double toY) const
    {
        constexpr int kSteps = 20;
        press(place(fromX, fromY));
        const auto isDown = std::chrono::steady_clock::now();
        for (int i = 1; i <= kSteps; ++i) {
            QTest::qWait(8);
            const double share = static_cast<double>(i) / kSteps;
            drag(place(fromX + (toX - fromX) * share, fromY + (toY - fromY) * share));
        }
        const auto end = std::chrono::steady_clock::now();
        release(place(toX, toY));
        return end - isDown;
    }

    int pointCount() const { return family->GetTotalInkPointsNumber(family->type); }

    std::vector<INKPOINTDATA> points() const
    {
        std::vector<INKPOINTDATA> found;
        for (int i = 0; i < pointCount(); ++i) {
            INKPOINTDATA point{};
            point.nIndex = i;
            EXPECT_EQ(family->GetInkPointData(family->type, point), 0);
            found.push_back(point);
        }
        return found;
    }

    bool lastStrokeEnded() const { return pointCount() > 0 && points().back().bStrokeEnd; }

    /// Switches a menu item, by its text without its mnemonic.
    void toggle(const QString &text) const
    {
        for (QAction *action : window->findChildren<QAction *>())
            if (action->text().remove('&') == text) {
                action->trigger();
                settle();
                return;
            }
        ADD_FAILURE() << "there is no menu item " << text.toStdString();
    }

    std::unique_ptr<virtualpad::PadWindow> window;
    const Family *family = nullptr;

    /// What the pad's buttons told since the last time.
    static std::vector<int> takeEvents()
    {
        const std::lock_guard lock(s_eventsLock);
        return std::exchange(s_events, {});
    }

private:
    inline static std::mutex s_eventsLock; ///< events come on the driver's thread
    inline static std::vector<int> s_events;
    QTemporaryDir m_runtimeDirectory;
    bool m_isOpen = false;
};

#endif
