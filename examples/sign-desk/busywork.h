/// @file
/// Long work beside the window: on a thread of its own, with its progress and a way to cancel it.
#ifndef BUSYWORK_H
#define BUSYWORK_H

#include <QString>

#include <atomic>
#include <functional>

class QWidget;

namespace signdesk {

/// How far a work is, written by its thread and read by the window.
class Progress
{
public:
    /// So many of so many steps are done. Throws when the clerk has cancelled.
    void show(qint64 done, qint64 total);

    double share() const { return m_share; } ///< 0 to 1; below 0 when nobody knows
    void cancel() { m_isCancelled = true; }

private:
    std::atomic<double> m_share{-1};
    std::atomic<bool> m_isCancelled{false};
};

/// Runs the work and waits for it; after half a second a dialog tells about it. What the work throws is thrown here.
/// False when the clerk cancelled: the work's thread may go on for a while then, so it must own all that it uses.
bool runBeside(QWidget *parent, const QString &what, const std::function<void(Progress &)> &work);

} // namespace signdesk

#endif
