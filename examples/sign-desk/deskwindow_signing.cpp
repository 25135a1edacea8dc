// The window while somebody signs: from the pad's opening to the next customer.
#include "deskwindow.h"

namespace signdesk {

/// Whether the document takes a signature there, and the clerk has been asked what has to be asked.
bool DeskWindow::mayStart()
{
    bool isAsked = false;
    const bool isAllowed = m_files.attempt([&] {
        m_counter.needAllowed();
        const bool isDocument = m_counter.document().pages().isPdf();
        isAsked = isDocument && m_counter.document().facts().isSigned && m_counter.signatory().key == nullptr;
    });
    return isAllowed && (!isAsked || m_files.mayChangeSigned());
}

void DeskWindow::start()
{
    if (state() == SigningState::Confirmed) {
        bool isAdded = false;
        m_files.attempt([&] {
            if (prepare()) {
                m_counter.add();
                isAdded = true;
            }
        });
        if (!isAdded)
            return;
        placeNextField();
    }
    if (!mayStart())
        return;
    rememberPlace();
    if (!m_files.attempt([this] { m_counter.start(m_padPanel->model(), m_penPanel->pen()); })) {
        m_counter.stop();
        return;
    }
    m_inkTimer.start();
    lookAtInk();
    m_view->showField();
    m_padPanel->focusConfirm();
}

void DeskWindow::clear()
{
    if (!mayDiscard())
        return;
    if (m_counter.signing().clear())
        m_status->note(tr("The field is empty, to be signed anew."));
    else
        m_status->note(
            tr("The field is empty, but the pad does not answer: see that it is plugged in, cancel, and start again."));
    lookAtInk();
}

void DeskWindow::cancel()
{
    if (mayDiscard())
        end(tr("Cancelled. The pad is closed."));
}

/// A cancel tapped by the signer discards what is not confirmed.
void DeskWindow::cancelOnPad()
{
    if (!m_counter.signing().isKept())
        m_status->note(tr("The signer tapped cancel after confirming; the confirmed signature is kept."));
    else
        end(tr("The signer cancelled. The pad is closed."));
}

void DeskWindow::undo()
{
    m_counter.undo();
    m_status->note(tr("The last signature is no longer in the document."));
}

void DeskWindow::done()
{
    if (!mayLeave())
        return;
    end({});
    m_counter.document().reset();
    m_counter.keep();
    showDocument();
    placeField();
    m_status->note(openedFile().isEmpty()
            ? tr("Done. Open the next page, or start signing on the blank sheet.")
            : tr("Done. The document is as it was opened: start signing for the next customer, or open another one."));
}

void DeskWindow::end(const QString &message)
{
    m_inkTimer.stop();
    m_counter.stop();
    lookAtInk();
    showRates(0);
    follow();
    m_status->note(message);
}

void DeskWindow::noteState(SigningState state)
{
    if (state == SigningState::Waiting)
        m_status->note(tr("The signer may write on the pad."));
    else if (state == SigningState::Writing)
        m_status->note(tr("Confirm here, or on the pad, when all is written."));
    else if (state == SigningState::Confirmed)
        m_status->note(tr("Confirmed. Save or print it, then press Done; or start another signature on the document."));
    else if (state == SigningState::Changed)
        m_status->note(tr("Something was written after the confirmation: confirm again, or clear."));
}

/// What to do when the pad no longer answers, or answers again.
void DeskWindow::followPad()
{
    m_padPanel->follow(state(), isPadAway());
    const bool isConfirmed = state() == SigningState::Confirmed;
    const bool hasInk = m_counter.signing().hasSignature();
    if (isPadAway() && isConfirmed)
        m_status->note(tr("The pad no longer answers. The confirmed signature is kept: save, export or print it."));
    else if (isPadAway() && hasInk)
        m_status->note(tr("The pad no longer answers. What it sent is kept, but strokes may be missing: see that it is "
                          "plugged in, cancel, and start again."));
    else if (isPadAway())
        m_status->note(tr("The pad no longer answers: see that it is plugged in, cancel, and start again."));
    else if (isConfirmed)
        m_status->note(tr("The pad answers again."));
    else if (hasInk)
        m_status->note(tr("The pad answers again, but strokes may be missing: clear the field and let the signer sign "
                          "anew."));
    else
        m_status->note(tr("The pad answers again. The signer may write on the pad."));
}

void DeskWindow::confirmDoubtful(int points)
{
    if (m_isAsking) // the signer goes on tapping while the question is open
        return;
    m_isAsking = true;
    const bool isAccepted = m_files.mayLackStrokes();
    m_isAsking = false;
    if (isAccepted)
        m_counter.signing().confirmDoubtful(points);
}

} // namespace signdesk
