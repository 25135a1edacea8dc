/// @file
/// Requests a widget's repaint from any thread.
#ifndef REPAINTREQUEST_H
#define REPAINTREQUEST_H

#include <atomic>

class QWidget;

/// Posts at most one request to the GUI thread until the widget is painted.
class RepaintRequest
{
public:
    /// Calls the widget's update(), directly on its own thread, otherwise posted. Any thread, while the widget lives.
    /// @throws std::bad_alloc, and the next request is posted again
    void make(QWidget &widget);

    /// Call it first in the paint handler: anything drawn after this needs a new request.
    void painted() { m_pending.store(false); }

    /// Set by the paint handler while it waits for the canvas lock.
    void setWaiting(bool waiting) { m_waiting.store(waiting); }

    /// For a thread that holds the canvas lock most of the time: lets a waiting paint handler have it. Returns at once
    /// if none waits, and after a few milliseconds in any case.
    void letPaint() const;

private:
    void post(QWidget &widget);

    std::atomic<bool> m_pending{false};
    std::atomic<bool> m_waiting{false};
};

#endif
