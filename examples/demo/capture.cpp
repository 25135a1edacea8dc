#include "capture.h"

#include "failure.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace {

constexpr int kStep = 20; ///< milliseconds between two looks
constexpr int kStepsPerReport = 5;
constexpr int kLongestSilence = 30000; ///< milliseconds without a new point or a tap

/// Counts strokes by looking at each stored point once.
class StrokeCounter
{
public:
    explicit StrokeCounter(const OpenedPad &pad)
        : m_pad(pad)
    {
    }

    void update()
    {
        const int points = m_pad->GetTotalInkPointsNumber(m_pad->type);
        for (; m_points < points; ++m_points) {
            INKPOINTDATA point = {};
            point.nIndex = m_points;
            if (m_pad->GetInkPointData(m_pad->type, point) == ARI_SUCCESS && point.bStrokeEnd)
                ++m_strokes;
        }
    }

    int points() const { return m_points; }
    int strokes() const { return m_strokes; }

private:
    const OpenedPad &m_pad;
    int m_points = 0;
    int m_strokes = 0;
};

Failure noConfirm(const OpenedPad &pad)
{
    return {QString("The %1 neither sent a pen packet nor a tap on confirm for %2 seconds.")
                .arg(pad->model)
                .arg(kLongestSilence / 1000),
        "Play a recording that ends with a tap on confirm: unset KVSIM_RECORDING and KVSIM_SPEED."};
}

} // namespace

CaptureState waitForConfirm(const OpenedPad &pad, const CaptureObserver &observer)
{
    StrokeCounter counter(pad);
    QElapsedTimer silence, writing;
    CaptureState state;
    silence.start();
    for (int step = 0;; ++step) {
        const bool confirmed = pad.isConfirmed();
        const int before = counter.points();
        counter.update();
        if (counter.points() != before) {
            silence.restart();
            if (before == 0)
                writing.start();
        }
        state = {
            counter.points(), counter.strokes(), writing.isValid() ? static_cast<double>(writing.elapsed()) / 1000 : 0};
        if (observer && (confirmed || step % kStepsPerReport == 0))
            observer(state);
        if (confirmed)
            return state;
        if (silence.elapsed() > kLongestSilence)
            throw noConfirm(pad);
        pause(kStep);
    }
}

void waitFor(const std::function<bool()> &condition, int milliseconds, const Failure &failure)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > milliseconds)
            throw failure;
        pause(kStep);
    }
}

void pause(int milliseconds)
{
    QElapsedTimer elapsed;
    elapsed.start();
    do {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    } while (elapsed.elapsed() < milliseconds);
}
