/// @file
/// The state of the signature, from the opening of the pad to the confirmation and until it is kept somewhere. All
/// decisions about it are made here: the window shows the state and passes on what the clerk does.
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

    /// Whether all that was confirmed has been saved, exported or printed.
    bool isKept() const { return m_isKept; }

    /// Whether something written, confirmed or not, is only on the screen yet.
    bool isUnsaved() const { return hasSignature() && (!m_isKept || m_state != SigningState::Confirmed); }

    /// What is confirmed was saved, exported or printed.
    void keep();

    /// What is confirmed is no longer what was saved: it lies elsewhere on the page, say.
    void change();

    /// The open pad does not answer. The points that it sent before stay.
    bool isPadAway() const { return m_watch.isAway(); }

    /// Call them after the session was opened or closed.
    void begin();
    void end();

    /// Confirms what is written. Without ink, or when the pad was away meanwhile and strokes may be missing, the state
    /// does not change; a signal says so.
    void confirm();

    /// Confirms so many points although strokes may be missing.
    void confirmDoubtful(int points);

    /// Empties canvas and points. False when the pad did not obey; they are empty even then.
    bool clear();

signals:
    void stateChanged(signdesk::SigningState state);
    void keptChanged();

    /// Many times a second, with the points that are stored.
    void looked(int points);
    void confirmedWithoutInk();

    /// The state is Confirmed now, with other ink than before.
    void confirmed();

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
    void setKept(bool isKept);

    PadSession &m_session;
    PadWatch m_watch;
    QTimer m_timer;
    SigningState m_state = SigningState::Closed;
    int m_confirmedPoints = 0;
    bool m_hasFingerprint = false; ///< seen before anything was written
    bool m_isKept = true;
    bool m_isDoubtful = false; ///< the pad was away, and something may have been written there
};

} // namespace signdesk

#endif
