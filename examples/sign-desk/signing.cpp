#include "signing.h"

namespace signdesk {

namespace {

constexpr int kLookEvery = 100; ///< milliseconds

} // namespace

Signing::Signing(PadSession &session, QObject *parent)
    : QObject(parent)
    , m_session(session)
{
    m_timer.setInterval(kLookEvery);
    connect(&m_timer, &QTimer::timeout, this, &Signing::look);
    connect(&session, &PadSession::tapped, this, &Signing::receiveTap);
}

void Signing::begin()
{
    m_hasFingerprint = false;
    m_timer.start();
    setState(SigningState::Waiting);
}

void Signing::end()
{
    m_timer.stop();
    setState(SigningState::Closed);
}

bool Signing::confirm(int points)
{
    if (!m_session.isOpen())
        return false;
    if (points == 0 && !m_hasFingerprint) {
        emit confirmedWithoutInk();
        return false;
    }
    m_confirmedPoints = points;
    setState(SigningState::Confirmed);
    return true;
}

bool Signing::clear()
{
    const bool obeyed = m_session.clear();
    m_hasFingerprint = false;
    if (m_session.isOpen())
        setState(SigningState::Waiting);
    return obeyed;
}

void Signing::setHasFingerprint(bool has)
{
    m_hasFingerprint = has;
    look();
}

void Signing::receiveTap(bool isConfirm, int points)
{
    if (isConfirm)
        confirm(points);
    else
        emit cancelledOnPad();
}

void Signing::look()
{
    const int points = m_session.points();
    if (m_state == SigningState::Waiting && (points > 0 || m_hasFingerprint)) {
        setState(SigningState::Writing);
    } else if (m_state == SigningState::Confirmed && points != m_confirmedPoints) {
        setState(SigningState::Changed);
    }
    emit looked();
}

void Signing::setState(SigningState state)
{
    if (state == m_state)
        return;
    m_state = state;
    emit stateChanged(state);
}

} // namespace signdesk
