/// @file
/// How far the signature is: from the pad's opening to the signer's confirmation.
#ifndef SIGNING_H
#define SIGNING_H

#include "padwatch.h"

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

    /// The pad in use does not answer; what it sent before stays.
    bool isPadAway() const { return m_watch.isAway(); }

    /// After the session was opened or closed.
    void begin();
    void end();

    /// What is written is what counts from now on. Nothing changes when nothing is written, or when the pad was away
    /// meanwhile, so that strokes may be missing; a signal says so.
    void confirm();

    /// The same for so many points, although strokes may be missing.
    void confirmDoubtful(int points);

    /// False when the pad did not obey; canvas and points are empty all the same.
    bool clear();

    /// Something other than ink is on the canvas.
    void setHasFingerprint(bool has);

signals:
    void stateChanged(signdesk::SigningState state);
    void looked();
    void confirmedWithoutInk();

    /// Not confirmed: the pad was away since the last begin or clear.
    void doubted(int points);

    void cancelledOnPad();

    /// The pad no longer answers, or answers again.
    void padAwayChanged();

private:
    void confirm(int points);
    void seePadAway();
    void receiveTap(bool isConfirm, int points);
    void look();
    void setState(SigningState state);

    PadSession &m_session;
    PadWatch m_watch;
    QTimer m_timer;
    SigningState m_state = SigningState::Closed;
    int m_confirmedPoints = 0;
    bool m_hasFingerprint = false;
    bool m_isDoubtful = false; ///< the pad was away, and something may have been written there
};

} // namespace signdesk

#endif
