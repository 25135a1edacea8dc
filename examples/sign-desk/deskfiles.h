/// @file
/// Opening, saving and printing, with their dialogs. Troubles are shown here.
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

    /// The path of the page to open; empty when the clerk cancels.
    QString askForPage();

    /// Each returns true when something was written. A name without a suffix gets that of the chosen kind.
    bool saveSignedPage(const SignedDocument &document);
    bool exportSignature(const PadSession &session, const OutputOptions &options);
    bool exportFingerprint(const FingerprintPlacing &fingerprint);
    bool print(const SignedDocument &document, int pageCount);

    /// Does the work. When it throws a Trouble, shows that to the clerk and returns false.
    bool attempt(const std::function<void()> &work);

    /// Asks whether the signature may be discarded although it is not saved.
    bool mayGo();

    /// Asks whether to confirm although the pad was away and strokes may be missing.
    bool mayLackStrokes();

private:
    QString askForName(const QString &title, const QString &proposal, const QStringList &kinds);
    bool ask(const QString &what, const QString &question, const QString &yes, const QString &no);

    QWidget &m_window;
    QString m_directory; ///< where the last file was
};

} // namespace signdesk

#endif
