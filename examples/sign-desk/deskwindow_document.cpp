// The window's document: opening it, the signature's place on it, saving and printing.
#include "deskwindow.h"
#include "modelrules.h"
#include "pagefile.h"
#include "signatorydialog.h"
#include "signfield.h"
#include "trouble.h"
#include "verifydialog.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace signdesk {

QString DeskWindow::openedFile() const
{
    const PageFile *const file = m_counter.document().opened().file();
    return file == nullptr ? QString() : file->path;
}

bool DeskWindow::openPage(const QString &path)
{
    std::unique_ptr<Pages> pages = m_files.open(path);
    if (pages == nullptr || !mayStillLeave())
        return false;
    showPages(std::move(pages));
    m_settings.addRecentDocument(QFileInfo(path).absoluteFilePath());
    m_actions.showRecent(m_settings.recentDocuments());
    m_status->note(tr("Move the field to where the signature belongs, then start signing."));
    return true;
}

void DeskWindow::showPages(std::unique_ptr<Pages> pages)
{
    end({});
    forgetPages();
    m_counter.setDocument(std::move(pages));
    placeField();
}

/// Shows the document as it stands, on the page that was shown before.
void DeskWindow::showDocument()
{
    const Pages &pages = m_counter.document().pages();
    renewPages();
    m_placePanel->setPageCount(pages.count());
    m_placePanel->setPage(m_view->fieldPage());
    offerFields();
    const QString file = openedFile();
    setWindowTitle(tr("%1[*] - Sign Desk").arg(file.isEmpty() ? tr("blank sheet") : QFileInfo(file).fileName()));
    follow();
}

/// A document whose form cannot be read is told about when it is signed.
void DeskWindow::offerFields()
{
    QStringList names;
    try {
        if (m_counter.document().pages().isPdf()) {
            for (const EmptyField &field : m_counter.document().facts().emptyFields)
                names << field.name;
        }
    } catch (const Trouble &) {
        names.clear();
    }
    m_placePanel->setFormFields(names);
}

/// Puts the field where this form was signed last; else into its only empty field, or where people usually sign.
void DeskWindow::placeField()
{
    const Pages &pages = m_counter.document().pages();
    const std::optional<RememberedPlace> last = m_settings.placeOf(pages.identity());
    const int page = last.has_value() ? std::clamp(last->page, 0, pages.count() - 1) : 0;
    m_view->setFormField(page, {});
    m_view->setField(page,
        last.has_value() && !last->field.isEmpty()
            ? last->field
            : usualField(pages.size(page), proportions(m_padPanel->model().row)));
    if (last.has_value())
        m_placePanel->setFormField(last->formField);
    else
        m_placePanel->setOnlyFormField();
    takePlace();
    m_view->showField();
}

/// Remembers where the first signature is, because the next customer signs there too.
void DeskWindow::rememberPlace()
{
    if (m_counter.document().added() > 0)
        return;
    const SignaturePlace &place = m_counter.place();
    m_settings.rememberPlace(m_counter.document().opened().identity(), {place.page, place.field, place.formField});
}

/// For another signature on the document: the form's next empty field, or beside the one before.
void DeskWindow::placeNextField()
{
    if (m_placePanel->hasFormFields()) {
        m_placePanel->setFirstFormField();
        return;
    }
    const Pages &pages = m_counter.document().pages();
    m_view->setField(fieldBeside(m_counter.place().field, pages.size(m_counter.place().page)));
}

void DeskWindow::chooseFormField(const QString &name)
{
    m_view->setFormField(0, {});
    if (!name.isEmpty()) {
        const Pages &pages = m_counter.document().pages();
        for (const EmptyField &field : m_counter.document().facts().emptyFields) {
            if (field.name != name)
                continue;
            const QSizeF page = pages.size(field.page);
            m_view->setFormField(field.page,
                {field.share.x() * page.width(), field.share.y() * page.height(), field.share.width() * page.width(),
                    field.share.height() * page.height()});
        }
    }
    takePlace();
    m_view->showField();
}

/// Tells the counter where the field is.
void DeskWindow::takePlace()
{
    m_placePanel->setPage(m_view->fieldPage());
    m_counter.setPlace({m_view->fieldPage(), m_view->field(), m_view->pageSize(), m_placePanel->formField()});
    showPlace();
}

void DeskWindow::showPlace()
{
    m_placePanel->setField(m_view->field(), m_view->pageSize());
    m_view->setFingerprint(m_counter.printPlace(), m_counter.print());
}

/// The document with all signatures; null when it cannot be had, which the clerk has been told.
std::shared_ptr<const SignedDocument> DeskWindow::result()
{
    std::shared_ptr<const SignedDocument> document;
    m_files.attempt([&] {
        if (prepare())
            document = std::make_shared<SignedDocument>(m_counter.result());
    });
    return document;
}

/// False when the clerk cancelled. Throws a Trouble.
bool DeskWindow::prepare()
{
    return m_counter.prepare([this](const auto &work) { return runBeside(this, tr("Signing the document..."), work); });
}

void DeskWindow::savePage()
{
    const Pages &opened = m_counter.document().opened();
    const bool wasOutdated = opened.isOutdated(); // and not only by this save
    const std::shared_ptr<const SignedDocument> document = result();
    const QString path = document == nullptr ? QString() : m_files.saveSignedPage(document, opened);
    if (path.isEmpty())
        return;
    m_counter.keep();
    rememberPlace();
    m_settings.addRecentDocument(path);
    m_actions.showRecent(m_settings.recentDocuments());
    const QString name = QFileInfo(path).fileName();
    if (m_counter.isUnsaved())
        m_status->note(tr("Saved as %1, but without what was written since: confirm that, and save again.").arg(name));
    else
        m_status->note(wasOutdated
                ? tr("The page is saved as it was when it was opened: its file has changed since then.")
                : tr("Saved as %1. Press Done for the next customer.").arg(name));
}

void DeskWindow::print()
{
    const std::shared_ptr<const SignedDocument> document = result();
    if (document == nullptr || !m_files.print(document, m_counter.document().pages().count()))
        return;
    m_counter.keep();
    if (m_counter.isUnsaved())
        m_status->note(tr("The page is printed, but without what was written since: confirm that, and print again."));
    else
        m_status->note(m_counter.document().opened().isOutdated()
                ? tr("The page is printed as it was when it was opened: its file has changed since then.")
                : tr("The page is printed."));
}

bool DeskWindow::chooseSignatory()
{
    SignatoryDialog dialog(m_settings, m_counter.signatory(), this);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_counter.setSignatory(dialog.signatory());
    m_signatoryPanel->show(m_counter.signatory());
    return true;
}

void DeskWindow::verify()
{
    const auto report = std::make_shared<documents::VerifyReport>();
    DocumentBytes bytes;
    const bool isThere = m_files.attempt([&] { bytes = m_counter.document().bytes(); });
    const bool isDone = isThere && m_files.attemptBeside(tr("Checking the signatures..."), [=](Progress &progress) {
        *report = reportOf(bytes, [&](qint64 done, qint64 total) { progress.show(done, total); });
    });
    if (isDone)
        VerifyDialog(QFileInfo(openedFile()).fileName(), *report, this).exec();
}

void DeskWindow::exportSignature()
{
    if (!m_files.exportSignature(m_counter.session(), m_outputPanel->options()))
        return;
    m_counter.keepInk();
    m_status->note(tr("The signature is exported."));
}

void DeskWindow::exportFingerprint()
{
    if (m_counter.print().isNull())
        showTrouble(this, {tr("There is no fingerprint."), tr("Let the signer lay a finger on the pad's sensor.")});
    else if (m_files.exportFingerprint(m_counter.session()))
        m_status->note(tr("The fingerprint is exported."));
}

} // namespace signdesk
