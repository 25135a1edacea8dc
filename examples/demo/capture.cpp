#include "capture.h"

#include "failure.h"
#include "padpresence.h"

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

/// May be called often; asks the pad only as often as its presence needs.
class Watch
{
public:
    explicit Watch(const OpenedPad &pad)
        : m_presence([&pad] { return pad.answers(); })
    {
        m_sinceLook.start();
    }

    bool isAway(int points)
    {
        if (m_sinceLook.hasExpired(m_presence.pause().count())) {
            m_presence.look(points);
            m_sinceLook.start();
        }
        return m_presence.isAway();
    }

private:
    PadPresence m_presence;
    QElapsedTimer m_sinceLook;
};

Failure noConfirm(const OpenedPad &pad)
{
    return {QString("The %1 neither sent a pen packet nor a tap on confirm for %2 seconds.")
                .arg(pad->model)
                .arg(kLongestSilence / 1000),
        "Play a recording that ends with a tap on confirm: unset KVSIM_RECORDING and KVSIM_SPEED."};
}

Unplugged unplugged(const OpenedPad &pad, int points)
{
    return {{QString("The %1 no longer answers: it was unplugged before the signer tapped confirm.").arg(pad->model),
                "Plug it in, and start again."},
        points};
}

} // namespace

CaptureState waitForConfirm(const OpenedPad &pad, const CaptureObserver &observer)
{
    StrokeCounter counter(pad);
    Watch watch(pad);
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
        if (watch.isAway(state.points))
            throw unplugged(pad, state.points);
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
