/// @file
/// Watches whether the session's pad is still there.
#ifndef PADWATCH_H
#define PADWATCH_H

#include "padpresence.h"
#include "padsession.h"

#include <QObject>
#include <QTimer>

namespace signdesk {

/// Asks the pad on the GUI thread, because the library's functions must be called there.
class PadWatch : public QObject
{
    Q_OBJECT
public:
    explicit PadWatch(PadSession &session, QObject *parent = nullptr);

    /// Call them after the session was opened or closed.
    void begin();
    void end();

    /// The result of the last look.
    bool isAway() const { return m_presence.isAway(); }

    /// Asks at once.
    void ask();

signals:
    /// The pad no longer answers, or answers again.
    void changed();

private:
    void look();
    void tellWhenChanged(bool wasAway);

    PadSession &m_session;
    PadPresence m_presence;
    QTimer m_timer;
};

} // namespace signdesk

#endif
