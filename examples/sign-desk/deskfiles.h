/// @file
/// Opening, saving and printing, with their dialogs. Troubles are shown here.
#ifndef DESKFILES_H
#define DESKFILES_H

#include "busywork.h"
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

    /// The file as pages; asks for its password as long as it needs one. Null when it cannot be opened, or the clerk
    /// gives up.
    std::unique_ptr<Pages> open(const QString &path);

    /// Each returns where something was written, or whether. A name without a suffix gets that of the chosen kind.
    /// @param source the document that is signed, whose file is not overwritten without a question
    QString saveSignedPage(const std::shared_ptr<const SignedDocument> &document, const Pages &source);
    bool exportSignature(const PadSession &session, const OutputOptions &options);
    bool exportFingerprint(const PadSession &session);
    bool print(const std::shared_ptr<const SignedDocument> &document, int pageCount);

    /// Does the work. When it throws a Trouble, shows that to the clerk and returns false.
    bool attempt(const std::function<void()> &work);

    /// The same beside the window, which says what is done; also false when the clerk cancels. The work may go on for
    /// a while then, so it must own all that it uses.
    bool attemptBeside(const QString &what, const std::function<void(Progress &)> &work);

    /// Asks whether the signature may be discarded although it is not saved.
    bool mayGo();

    /// Asks whether to confirm although the pad was away and strokes may be missing.
    bool mayLackStrokes();

    /// Asks whether ink alone may be put into a document with digital signatures.
    bool mayChangeSigned();

private:
    QString askForName(const QString &title, const QString &proposal, const QStringList &kinds);
    QString askForSignedName(const Pages &document);
    bool mayOverwriteOpened(const QString &path, bool isOutdated);
    bool ask(const QString &what, const QString &question, const QString &yes, const QString &no);

    QWidget &m_window;
    QString m_directory; ///< where the last file was
};

} // namespace signdesk

#endif
