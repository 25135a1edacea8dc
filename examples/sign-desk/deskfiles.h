/// @file
/// Files and paper: the dialogs that ask for them, and what happens then. Troubles are told here.
#ifndef DESKFILES_H
#define DESKFILES_H

#include "fingerprintplacing.h"
#include "signatureoutput.h"
#include "signeddocument.h"

#include <QObject>
#include <QWidget>

#include <functional>

namespace signdesk {

class DeskFiles : public QObject
{
    Q_OBJECT
public:
    explicit DeskFiles(QWidget &window);

    /// The path of the page to open; empty when the clerk changes his mind.
    QString askForPage();

    /// Each true when something was written. A name without a suffix gets that of the chosen kind.
    bool saveSignedPage(const SignedDocument &document);
    bool exportSignature(const PadSession &session, const OutputOptions &options);
    bool exportFingerprint(const FingerprintPlacing &fingerprint);
    bool print(const SignedDocument &document, int pageCount);

    /// Does the work; false when it threw a Trouble, which the clerk has been told.
    bool attempt(const std::function<void()> &work);

    /// Whether the signature may go although it is nowhere but on the screen.
    bool mayGo();

    /// Whether what is written is to count although the pad was away meanwhile.
    bool mayLackStrokes();

private:
    QString askForName(const QString &title, const QString &proposal, const QStringList &kinds);
    bool ask(const QString &what, const QString &question, const QString &yes, const QString &no);

    QWidget &m_window;
    QString m_directory; ///< where the last file was
};

} // namespace signdesk

#endif
