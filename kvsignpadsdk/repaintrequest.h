/// @file
/// Asks for a widget's repaint from any thread.
#ifndef REPAINTREQUEST_H
#define REPAINTREQUEST_H

#include <atomic>

class QWidget;

/// One request is posted to the GUI thread however often it is made before the widget is painted.
class RepaintRequest
{
public:
    /// Calls update() of the widget: at once on its own thread, else posted. Safe on the driver's thread while the
    /// widget lives.
    void make(QWidget &widget);

    /// To be called first thing in the paint handler: what is drawn from now on needs a new request.
    void painted() { m_pending.store(false); }

    /// The paint handler says that it waits for the canvas, or that it has it.
    void setWaiting(bool waiting) { m_waiting.store(waiting); }

    /// For a thread that holds the canvas most of the time: gives a paint handler that waits for it its turn. Returns
    /// at once when none does, after a few milliseconds in any case.
    void letPaint() const;

private:
    std::atomic<bool> m_pending{false};
    std::atomic<bool> m_waiting{false};
};

#endif
