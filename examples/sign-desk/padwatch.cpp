#include "padwatch.h"

namespace signdesk {

PadWatch::PadWatch(PadSession &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_presence([this] { return m_session.answers(); })
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &PadWatch::look);
}

void PadWatch::begin()
{
    m_presence = PadPresence([this] { return m_session.answers(); });
    m_timer.start(m_presence.pause());
}

void PadWatch::end()
{
    m_timer.stop();
    m_presence = PadPresence([this] { return m_session.answers(); });
}

void PadWatch::look()
{
    const bool wasAway = isAway();
    m_presence.look(m_session.points());
    m_timer.start(m_presence.pause());
    tellWhenChanged(wasAway);
}

void PadWatch::ask()
{
    const bool wasAway = isAway();
    m_presence.ask();
    tellWhenChanged(wasAway);
}

void PadWatch::tellWhenChanged(bool wasAway)
{
    if (isAway() != wasAway)
        emit changed();
}

} // namespace signdesk
