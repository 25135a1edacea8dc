/// @file
/// Calls every function of an open pad, as an application may while somebody signs. Checks that each answer is
/// well-formed; its content depends on the pen.
#ifndef EVERYCALL_H
#define EVERYCALL_H

#include "openpad.h"

#include <QTemporaryDir>

#include <atomic>
#include <set>
#include <tuple>

class EveryCall
{
public:
    /// The packets are all that the pen may send; any other stored point is a failure.
    EveryCall(const PadCase &pad, const std::vector<KVSIM_PACKET> &packets);

    /// Calls all of the following.
    void operator()();

    void device();
    void pen();
    void points();
    void texts();
    void files();
    void record();
    void model();

    /// Switches the receiver of taps on and off.
    void receivers();

    /// Number of images, records and files checked.
    int wholeAnswers() const { return m_wholeAnswers; }

private:
    using Point = std::tuple<int16_t, int16_t, int16_t>;

    void checkImage(char *text, void (*release)(int, char *));
    void checkPoint(int16_t x, int16_t y, int16_t pressure);
    void livePush();
    void fingerprint();

    const PadCase m_pad;
    const Family &m_family;
    const int m_type;
    std::set<Point> m_sent;
    QTemporaryDir m_directory;
    std::atomic<int> m_wholeAnswers{0};
    std::atomic<int> m_round{0};
};

#endif
