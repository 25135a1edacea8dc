// What the window does so that a confirmed signature outlasts the program, and with one that an earlier desk left.
#include "deskwindow.h"
#include "pagefile.h"
#include "trouble.h"

#include <QFileInfo>

namespace signdesk {

void DeskWindow::keepConfirmed()
{
    m_keeping = std::make_unique<SafeKeeping>(m_counter);
    connect(m_keeping.get(), &SafeKeeping::failed, this, [this] {
        m_status->note(
            tr("Save or print it now: if the computer or Sign Desk stopped, the signature would be lost, for "
               "%1 cannot be written.")
                .arg(m_keeping->path()));
    });
}

void DeskWindow::discardKept()
{
    if (m_keeping != nullptr)
        m_keeping->end();
}

bool DeskWindow::offerLeft(const QString &path)
{
    if (m_keeping == nullptr)
        return false;
    QStringList damaged;
    const std::vector<LeftSignature> all = m_keeping->left(damaged);
    for (const QString &file : damaged)
        showTrouble(this,
            {tr("An earlier Sign Desk left a signature that was not saved, but its file is damaged."),
                tr("It was put aside as %1. Ask the signer to sign anew.").arg(file)});
    for (const LeftSignature &left : all) {
        if (!path.isEmpty() && QFileInfo(left.signature.path) != QFileInfo(path))
            continue;
        const LeftAnswer answer = askAboutLeft(this, left.signature);
        if (answer != LeftAnswer::Discard)
            return answer == LeftAnswer::GoOn && goOnWith(left);
        m_keeping->remove(left);
    }
    return false;
}

bool DeskWindow::goOnWith(const LeftSignature &left)
{
    std::unique_ptr<Pages> pages;
    const LeftAnswer answer = openFor(left.signature, pages);
    if (answer == LeftAnswer::Discard)
        m_keeping->remove(left);
    if (answer != LeftAnswer::GoOn || !chooseSignatoryOf(left.signature))
        return false;
    showPages(std::move(pages));
    bool isRestored = false;
    m_files.attempt([&] {
        isRestored = m_counter.restore(
            left.signature, [this](const auto &work) { return runBeside(this, tr("Signing the document..."), work); });
    });
    if (!isRestored)
        return false;
    if (m_keeping->isSafe())
        m_keeping->remove(left);
    placeNextField();
    m_status->note(tr("The document is signed as before Sign Desk ended. Save or print it, then press Done."));
    return true;
}

/// Opens the document that was signed, wherever the clerk finds it: goes on only with that one.
LeftAnswer DeskWindow::openFor(const UnsavedSignature &left, std::unique_ptr<Pages> &pages)
{
    if (left.path.isEmpty()) {
        pages = blankPages();
        return LeftAnswer::GoOn;
    }
    QString path = left.path;
    while (!path.isEmpty()) {
        if (QFileInfo::exists(path)) {
            pages = m_files.open(path);
            if (pages == nullptr) // the clerk was told why
                return LeftAnswer::Later;
            if (pages->file()->digest == left.digest)
                return LeftAnswer::GoOn;
        }
        const LeftAnswer answer = askAboutLost(this, left, path);
        if (answer != LeftAnswer::GoOn)
            return answer;
        path = m_files.askForPage();
    }
    return LeftAnswer::Later;
}

/// Keys are not kept, so the one that was to sign has to be chosen again.
bool DeskWindow::chooseSignatoryOf(const UnsavedSignature &left)
{
    if (left.signer.isEmpty())
        return true;
    showTrouble(this,
        {tr("The signature was to be made with the certificate of %1.").arg(left.signer),
            tr("Choose it again: Sign Desk keeps no keys.")});
    return chooseSignatory();
}

} // namespace signdesk
