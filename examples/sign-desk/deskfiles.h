/// @file
/// Files and paper: the dialogs that ask for them, and what happens then. Troubles are told here.
#ifndef DESKFILES_H
#define DESKFILES_H

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
    bool exportFingerprint(const QByteArray &pngFile);
    bool print(const SignedDocument &document, int pageCount);

    /// Whether the signature may go although it is nowhere but on the screen.
    bool mayGo();

private:
    QString askForName(const QString &title, const QString &proposal, const QStringList &kinds);
    bool attempt(const std::function<void()> &work);

    QWidget &m_window;
    QString m_directory; ///< where the last file was
};

} // namespace signdesk

#endif
