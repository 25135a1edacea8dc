#include "deskfiles.h"

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

bool DeskFiles::saveSignedPage(const SignedDocument &document)
{
    const QString path = askForName(tr("Save signed page"), tr("signed-page"),
        {tr("PDF with all pages (*.pdf)"), tr("PNG picture of the signed page (*.png)")});
    return !path.isEmpty() && attempt([&] { document.save(path); });
}

bool DeskFiles::exportSignature(const PadSession &session, const OutputOptions &options)
{
    QStringList kinds;
    for (const SignatureFormat &format : signatureFormats())
        kinds << QStringLiteral("%1 (*.%2)").arg(QLatin1String(format.name), QLatin1String(format.suffix));
    const QString path = askForName(tr("Export signature"), tr("signature"), kinds);
    return !path.isEmpty() && attempt([&] { saveSignature(session, path, options); });
}

bool DeskFiles::exportFingerprint(const FingerprintPlacing &fingerprint)
{
    const QString path = askForName(tr("Export fingerprint"), tr("fingerprint"), {QStringLiteral("PNG (*.png)")});
    return !path.isEmpty() && attempt([&] {
        const QByteArray content = fingerprint.pngFile();
        writeFile(path, [&](QIODevice &file) { return file.write(content) == content.size(); });
    });
}

bool DeskFiles::print(const SignedDocument &document, int pageCount)
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, &m_window);
    dialog.setMinMax(1, pageCount);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted && attempt([&] { document.print(printer); });
}

bool DeskFiles::mayGo()
{
    return ask(
        tr("The signature is neither saved nor printed."), tr("Shall it be discarded?"), tr("&Discard"), tr("&Keep"));
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
