#include "signing.h"

namespace signdesk {

namespace {

constexpr int kLookEvery = 100; ///< milliseconds

} // namespace

Signing::Signing(PadSession &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
    , m_watch(session)
{
    m_timer.setInterval(kLookEvery);
    connect(&m_timer, &QTimer::timeout, this, &Signing::look);
    connect(&session, &PadSession::tapped, this, &Signing::receiveTap);
    connect(&m_watch, &PadWatch::changed, this, &Signing::seePadAway);
}

void Signing::begin()
{
    m_hasFingerprint = false;
    m_isDoubtful = false;
    m_watch.begin();
    m_timer.start();
    setState(SigningState::Waiting);
}

void Signing::end()
{
    m_watch.end();
    m_timer.stop();
    setState(SigningState::Closed);
}

void Signing::confirm()
{
    if (m_session.isOpen())
        m_watch.ask(); // the pad may have been unplugged since the last look
    confirm(m_session.points());
}

void Signing::confirm(int points)
{
    if (!m_session.isOpen())
        return;
    if (points == 0 && !m_hasFingerprint)
        emit confirmedWithoutInk();
    else if (m_isDoubtful)
        emit doubted(points);
    else
        confirmDoubtful(points);
}

void Signing::confirmDoubtful(int points)
{
    if (!m_session.isOpen())
        return;
    // What was written and confirmed between two looks was never seen as Changed.
    const bool isAnother = m_state != SigningState::Confirmed || points != m_confirmedPoints;
    m_confirmedPoints = points;
    if (isAnother)
        setKept(false);
    setState(SigningState::Confirmed);
    if (isAnother)
        emit confirmed();
}

bool Signing::clear()
{
    const bool obeyed = m_session.clear();
    m_hasFingerprint = false;
    m_isDoubtful = m_watch.isAway();
    if (m_session.isOpen())
        setState(SigningState::Waiting);
    return obeyed;
}

void Signing::keep()
{
    setKept(true);
}

void Signing::change()
{
    if (m_state == SigningState::Confirmed)
        setKept(false);
}

void Signing::receiveTap(bool isConfirm, int points)
{
    if (isConfirm)
        confirm(points);
    else
        emit cancelledOnPad();
}

void Signing::seePadAway()
{
    m_isDoubtful |= m_watch.isAway();
    emit padAwayChanged();
}

void Signing::look()
{
    const int points = m_session.points();
    if (m_state == SigningState::Waiting) {
        m_hasFingerprint = m_session.hasFingerprintAlone();
        if (points > 0 || m_hasFingerprint)
            setState(SigningState::Writing);
    } else if (m_state == SigningState::Confirmed && points != m_confirmedPoints) {
        setState(SigningState::Changed);
    }
    emit looked(points);
}

void Signing::setState(SigningState state)
{
    if (state == m_state)
        return;
    m_state = state;
    if (!hasSignature())
        setKept(true);
    emit stateChanged(state);
}

void Signing::setKept(bool isKept)
{
    if (isKept == m_isKept)
        return;
    m_isKept = isKept;
    emit keptChanged();
}

} // namespace signdesk
