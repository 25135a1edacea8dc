/// @file
/// How far the signature is: from the pad's opening to the signer's confirmation.
#ifndef SIGNING_H
#define SIGNING_H

#include "padsession.h"

#include <QObject>
#include <QTimer>

namespace signdesk {

enum class SigningState
{
    Closed, ///< no pad is open
    Waiting, ///< nothing is written yet
    Writing,
    Confirmed,
    Changed ///< written on after it was confirmed
};

class Signing : public QObject
{
    Q_OBJECT
public:
    /// Looks at the session many times a second while it is open.
    explicit Signing(PadSession &session, QObject *parent = nullptr);

    SigningState state() const { return m_state; }
    bool hasSignature() const { return m_state > SigningState::Waiting; }

    /// After the session was opened or closed.
    void begin();
    void end();

    /// What is written is what counts from now on. False, and no change, when nothing is written.
    bool confirm() { return confirm(m_session.points()); }

    /// False when the pad did not obey; canvas and points are empty all the same.
    bool clear();

    /// Something other than ink is on the canvas.
    void setHasFingerprint(bool has);

signals:
    void stateChanged(signdesk::SigningState state);
    void looked();
    void confirmedWithoutInk();
    void cancelledOnPad();

private:
    bool confirm(int points);
    void receiveTap(bool isConfirm, int points);
    void look();
    void setState(SigningState state);

    PadSession &m_session;
    QTimer m_timer;
    SigningState m_state = SigningState::Closed;
    int m_confirmedPoints = 0;
    bool m_hasFingerprint = false;
};

} // namespace signdesk

#endif
