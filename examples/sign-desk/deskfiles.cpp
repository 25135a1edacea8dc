#include "deskfiles.h"

#include "pagefile.h"
#include "passworddialog.h"
#include "safefile.h"
#include "trouble.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>

namespace signdesk {

namespace {

/// Shows the waiting pointer while it lives.
class BusyPointer
{
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;
};

/// "PNG (*.png)": ".png"
QString suffixOf(const QString &kind)
{
    static const QRegularExpression pattern(QStringLiteral("\\*(\\.\\w+)"));
    return pattern.match(kind).captured(1);
}

QString pathOf(const Pages &document)
{
    const PageFile *const file = document.file();
    return file == nullptr ? QString() : file->path;
}

/// "note-signed.pdf" for "note.pdf"; another one when there is such a file.
QString signedNameFor(const QString &opened)
{
    if (opened.isEmpty())
        return DeskFiles::tr("signed-page");
    const QFileInfo source(opened);
    const QString stem = DeskFiles::tr("%1-signed").arg(source.completeBaseName());
    QString name = stem + QStringLiteral(".pdf");
    for (int i = 2; source.dir().exists(name); ++i)
        name = QStringLiteral("%1-%2.pdf").arg(stem).arg(i);
    return name;
}

} // namespace

DeskFiles::DeskFiles(QWidget &window)
    : QObject(&window)
    , m_window(window)
    , m_directory(QDir::homePath())
{
}

QString DeskFiles::askForPage()
{
    const QString path = QFileDialog::getOpenFileName(&m_window, tr("Page to sign"), m_directory,
        tr("Pages (*.pdf *.png *.jpg *.jpeg *.bmp *.svg)") + QStringLiteral(";;") + tr("All files (*)"));
    if (!path.isEmpty())
        m_directory = QFileInfo(path).path();
    return path;
}

QString DeskFiles::askForName(const QString &title, const QString &proposal, const QStringList &kinds)
{
    QFileDialog dialog(&m_window, title, m_directory);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(kinds);
    dialog.setDefaultSuffix(suffixOf(kinds.first()));
    connect(&dialog, &QFileDialog::filterSelected, &dialog,
        [&](const QString &kind) { dialog.setDefaultSuffix(suffixOf(kind)); });
    dialog.selectFile(proposal);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    m_directory = dialog.directory().path();
    return dialog.selectedFiles().value(0);
}

bool DeskFiles::attempt(const std::function<void()> &work)
{
    try {
        const BusyPointer busy;
        work();
        return true;
    } catch (const Trouble &trouble) {
        showTrouble(&m_window, trouble);
        return false;
    }
}

std::unique_ptr<Pages> DeskFiles::open(const QString &path)
{
    QByteArray password;
    for (;;) {
        try {
            const auto pages = std::make_shared<std::unique_ptr<Pages>>();
            const bool isDone = runBeside(&m_window, tr("Opening %1...").arg(QFileInfo(path).fileName()),
                [=](Progress &) { *pages = openPages(path, password); });
            return isDone ? std::move(*pages) : nullptr;
        } catch (const PasswordNeeded &needed) {
            const std::optional<QByteArray> typed =
                askForPassword(&m_window, tr("%1 is protected by a password.").arg(QFileInfo(path).fileName()),
                    needed.wasWrong ? tr("This is not the password. Type it again.") : QString());
            if (!typed.has_value())
                return nullptr;
            password = *typed;
        } catch (const Trouble &trouble) {
            showTrouble(&m_window, trouble);
            return nullptr;
        }
    }
}

/// Asks again until the name is another one than the opened file's, or the clerk wants that.
QString DeskFiles::askForSignedName(const Pages &document)
{
    const QString opened = pathOf(document);
    const QStringList kinds{tr("PDF with all pages (*.pdf)"), tr("PNG picture of the signed page (*.png)")};
    for (;;) {
        const QString path = askForName(tr("Save signed page"), signedNameFor(opened), kinds);
        const bool isOpened = !path.isEmpty() && !opened.isEmpty()
            && QFileInfo(path).canonicalFilePath() == QFileInfo(opened).canonicalFilePath() && QFileInfo::exists(path);
        if (!isOpened || mayOverwriteOpened(path, document.isOutdated()))
            return path;
    }
}

bool DeskFiles::attemptBeside(const QString &what, const std::function<void(Progress &)> &work)
{
    try {
        return runBeside(&m_window, what, work);
    } catch (const Trouble &trouble) {
        showTrouble(&m_window, trouble);
        return false;
    }
}

bool DeskFiles::mayOverwriteOpened(const QString &path, bool isOutdated)
{
    if (isOutdated) // by the customer before, perhaps, or at another desk
        return ask(tr("%1 has changed since you opened it.").arg(QFileInfo(path).fileName()),
            tr("What it has got since, perhaps another signature, would be lost. To keep both, choose another name."),
            tr("&Overwrite"), tr("Choose &another name"));
    return ask(tr("%1 is the document that you opened.").arg(QFileInfo(path).fileName()),
        tr("Shall the signed document take its place?"), tr("&Overwrite"), tr("Choose &another name"));
}

QString DeskFiles::saveSignedPage(const std::shared_ptr<const SignedDocument> &document, const Pages &source)
{
    const QString opened = pathOf(source);
    if (!opened.isEmpty() && QFileInfo(QFileInfo(opened).path()).isWritable())
        m_directory = QFileInfo(opened).path();
    const QString path = askForSignedName(source);
    const auto save = [=](Progress &progress) {
        document->save(path, [&](qint64 done, qint64 total) { progress.show(done, total); });
    };
    const bool isSaved = !path.isEmpty() && attemptBeside(tr("Saving %1...").arg(QFileInfo(path).fileName()), save);
    return isSaved ? path : QString();
}

bool DeskFiles::exportSignature(const PadSession &session, const OutputOptions &options)
{
    QStringList kinds;
    for (const SignatureFormat &format : signatureFormats())
        kinds << QStringLiteral("%1 (*.%2)").arg(QLatin1String(format.name), QLatin1String(format.suffix));
    const QString path = askForName(tr("Export signature"), tr("signature"), kinds);
    return !path.isEmpty() && attempt([&] { saveSignature(session, path, options); });
}

bool DeskFiles::exportFingerprint(const PadSession &session)
{
    const QString path = askForName(tr("Export fingerprint"), tr("fingerprint"), {QStringLiteral("PNG (*.png)")});
    return !path.isEmpty() && attempt([&] {
        const QByteArray content = session.fingerprintFile();
        if (content.isEmpty())
            throw Trouble{tr("There is no picture of the fingerprint."),
                tr("See that the computer has memory to spare. Nothing was written; the fingerprint is still here.")};
        writeFile(path, content);
    });
}

bool DeskFiles::print(const std::shared_ptr<const SignedDocument> &document, int pageCount)
{
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), &m_window);
    dialog.setMinMax(1, pageCount);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted && attemptBeside(tr("Printing..."), [=](Progress &progress) {
        document->print(*printer, [&](qint64 done, qint64 total) { progress.show(done, total); });
    });
}

bool DeskFiles::mayGo()
{
    return ask(
        tr("The signature is neither saved nor printed."), tr("Shall it be discarded?"), tr("&Discard"), tr("&Keep"));
}

bool DeskFiles::mayChangeSigned()
{
    return ask(tr("The document is signed digitally already."),
        tr("Ink alone counts as a change after those signatures. With a certificate it would be a signature too: "
           "choose one at the right."),
        tr("&Sign with ink alone"), tr("Go &back"));
}

bool DeskFiles::mayLackStrokes()
{
    return ask(tr("The pad did not answer for a while. Strokes of the signature may be missing."),
        tr("Compare it with what the signer has written. If anything is missing, go back, clear the field, and let the "
           "signer sign anew."),
        tr("&Confirm all the same"), tr("Go &back"));
}

/// Return and Escape choose the harmless answer.
bool DeskFiles::ask(const QString &what, const QString &question, const QString &yes, const QString &no)
{
    QMessageBox box(
        QMessageBox::Question, QApplication::applicationDisplayName(), what, QMessageBox::NoButton, &m_window);
    box.setInformativeText(question);
    QAbstractButton *const accept = box.addButton(yes, QMessageBox::DestructiveRole);
    QPushButton *const refuse = box.addButton(no, QMessageBox::RejectRole);
    box.setDefaultButton(refuse);
    box.setEscapeButton(refuse);
    box.exec();
    return box.clickedButton() == accept;
}

} // namespace signdesk
