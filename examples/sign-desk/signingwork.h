/// @file
/// Puts a signature into a document's bytes, and makes sure that it is there. No state and no widgets, for any thread.
#ifndef SIGNINGWORK_H
#define SIGNINGWORK_H

#include <documents/signing.h>
#include <documents/verify.h>

#include <QByteArray>

#include <memory>

namespace signdesk {

/// Whose certificate signs, and what the signature says.
struct Signatory
{
    std::shared_ptr<documents::SigningKey> key; ///< null: ink alone
    QString reason;
    QString location;
};

struct SignatureWish
{
    int page = 0;
    QRectF place; ///< in points of the page as it is shown
    QSizeF pageSize; ///< in points
    QString formField; ///< an empty field of the form instead of the place; empty for none
    documents::Ink ink;
    Signatory signatory;

    bool operator==(const SignatureWish &other) const;
};

/// A document with its password, empty for none.
struct DocumentBytes
{
    QByteArray content;
    QByteArray password;
};

struct SignedBytes
{
    QByteArray content;
    bool isAppended = true; ///< it begins with the bytes before
};

/// A field of the form that waits for a signature.
struct EmptyField
{
    QString name;
    int page = 0;
    QRectF share; ///< of the page as it is shown, whose sides are 1
};

struct DocumentFacts
{
    std::vector<EmptyField> emptyFields; ///< that have a place on a page
    bool isSigned = false; ///< digitally
};

/// Throws a Trouble when it is no document that can be signed.
DocumentFacts factsOf(const DocumentBytes &document);

/// Throws a Trouble when the document does not take such a signature: to be asked before anybody signs.
void needAllowed(const DocumentBytes &document, const SignatureWish &wish);

/// What the digital signatures of the document are worth. Throws a Trouble.
documents::VerifyReport reportOf(const DocumentBytes &document, const documents::ShowProgress &progress);

/// Adds the signature, opens the outcome and looks for each of the lines in it. Throws a Trouble rather than return a
/// document that lacks ink or anything of the document before.
SignedBytes addSignature(
    const DocumentBytes &document, const SignatureWish &wish, const documents::ShowProgress &progress);

} // namespace signdesk

#endif
