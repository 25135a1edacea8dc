/// @file
/// Documents that are signed with kvsign as a person would, and looked at with other programs.
#ifndef TEST_SIGNEDDOCUMENTS_H
#define TEST_SIGNEDDOCUMENTS_H

#include "../kvsign/kvsign.h"

#include <QRectF>

namespace signeddocuments {

/// Keys and certificates that openssl makes once for a test program.
struct People
{
    QString folder;

    /// Anna and Ben, whose certificates come from one authority; their files have the password "secret".
    QString anna() const { return folder + "/anna.p12"; }
    QString ben() const { return folder + "/ben.p12"; }
    QString authority() const { return folder + "/authority.pem"; }
    QString password() const { return folder + "/password"; }

    /// Two with keys of RSA, which take long to make, so that only what asks gets them: expert.key, .pem and .p12,
    /// other.key.
    QString expert() const;

    static const People &get();
};

/// A folder for a test's documents, with ink to sign with.
class Documents : public kvsign::Place
{
protected:
    Documents();

    /// One of the documents in data/.
    static QString given(const QString &name) { return KV_DOCUMENTS "/" + name; }

    /// Signs without a certificate, or with Anna's or Ben's; it must end well.
    QJsonObject signPage(const QString &from, const QString &to, const QStringList &options = {}) const;
    QJsonObject signAs(
        const QString &keyFile, const QString &from, const QString &to, const QStringList &options = {}) const;

    using Objects = QList<QPair<int, QByteArray>>; ///< a PDF's, by their numbers

    /// A document of these objects, of which number 1 is the catalogue.
    void writeDocument(const QString &name, const Objects &objects) const;

    /// Appends a revision that replaces or adds objects of a document with a cross-reference table.
    void appendRevision(const QString &from, const QString &to, const Objects &objects) const;

    /// kvsign verify --json, whatever it answers.
    QJsonObject verified(const QString &name, int exitCode, const QStringList &options = {}) const;

    /// The same with the authority trusted.
    QJsonObject trusted(const QString &name, int exitCode) const;

    /// A signature of what verify answers.
    static QJsonObject row(const QJsonObject &result, int index = 0);

    /// What another program says about a file of the test's folder; it must end well.
    QString says(const QStringList &command) const;

    /// A page as poppler or mupdf draws it.
    QImage drawn(
        const QString &program, const QString &name, int dpi, int page = 1, const QString &password = {}) const;

    void needSound(const QString &name, const QStringList &options = {}) const;
};

/// The number behind a key of a document's last trailer.
int numberBehind(const QByteArray &document, const QByteArray &key);

/// The box of the pixels that are of a clear red, in millimetres.
QRectF redBox(const QImage &image, int dpi);

} // namespace signeddocuments

#endif
