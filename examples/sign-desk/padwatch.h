/// @file
/// Whether the session's pad is still there, looked at again and again.
#ifndef PADWATCH_H
#define PADWATCH_H

#include "padpresence.h"
#include "padsession.h"

#include <QObject>
#include <QTimer>

namespace signdesk {

/// The pad is asked on the GUI thread, as the library's functions are to be called.
class PadWatch : public QObject
{
    Q_OBJECT
public:
    explicit PadWatch(PadSession &session, QObject *parent = nullptr);

    /// After the session was opened or closed.
    void begin();
    void end();

    /// As far as is known.
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
