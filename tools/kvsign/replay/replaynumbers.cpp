#include "../failure.h"
#include "../interruption.h"
#include "../terminal.h"
#include "replay.h"

#include <QElapsedTimer>
#include <QThread>

#include <cstdio>

#include <unistd.h>

namespace {

constexpr qint64 kLongestSleep = 50; // milliseconds until the next look for an interruption

void waitUntil(double due, const QElapsedTimer &running)
{
    for (;;) {
        const qint64 left = static_cast<qint64>(due) - running.elapsed();
        if (left <= 0)
            return;
        flushOutput();
        QThread::msleep(static_cast<unsigned long>(std::min(left, kLongestSleep)));
        throwIfInterrupted();
    }
}

void print(const POINTDATA &point, double written)
{
    std::printf("%9.3f %6d %6d %6d%s\n", written / 1000, point.nX, point.nY, point.nPressureValue,
        point.bStrokeEnd ? "  up" : "");
}

void printJson(const POINTDATA &point, double written)
{
    sayJsonLine({{"ms", written}, {"x", point.nX}, {"y", point.nY}, {"pressure", point.nPressureValue},
        {"strokeEnd", point.bStrokeEnd}});
}

} // namespace

void replayAsNumbers(PointSource &points, double speed, bool asJson)
{
    ReplayTimes times(speed);
    QElapsedTimer running;
    running.start();
    if (!asJson)
        std::puts("#  second      x      y  press.");
    POINTDATA point;
    while (points.next(point)) {
        waitUntil(times.dueAt(point), running);
        (asJson ? printJson : print)(point, times.written());
        if (std::ferror(stdout) != 0) // the reader has gone, or the disk is full
            flushOutput();
    }
}
