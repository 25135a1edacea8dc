/// @file
/// Puts ink into a document, with a digital signature or without.
#ifndef DOCUMENTS_SIGNING_H
#define DOCUMENTS_SIGNING_H

#include "document.h"
#include "ink.h"
#include "signingkey.h"

#include <QDateTime>
#include <QIODevice>

#include <functional>

namespace documents {

struct SigningRequest
{
    int page = 0; ///< from 0
    QRectF place; ///< millimetres from the shown page's top left
    QString formField; ///< an empty signature field's name, instead of page and place; empty for none
    Ink ink;
    QString alternativeText;

    const SigningKey *key = nullptr; ///< null: the ink becomes a part of the page, without a digital signature
    QString name; ///< who signs; empty: as the certificate says
    QString reason;
    QString location;
    QDateTime time; ///< of the signature
    QString timestampUrl; ///< a server of RFC 3161; empty for none

    QByteArray sealed; ///< pen data as sealFor gives it; empty for none
    bool flatten = false; ///< form fields become page content first
};

struct SigningResult
{
    qint64 originalSize = 0;
    qint64 size = 0;
    QString rewriteReason; ///< why the document was written anew; empty: the result begins with its bytes
    QString field; ///< the signature field; empty without a certificate
    int page = 0;
    QRectF place; ///< millimetres
    int flattened = 0; ///< fields
    QStringList notes; ///< what the user should know
};

/// How much of how much is done, for one step after the other; also called about once a second while a server is waited
/// for. What it throws ends the work, and comes out of it unchanged unless it is a std::exception.
using ShowProgress = std::function<void(qint64 done, qint64 total)>;

/// Throws a Problem when the document does not allow it or has no such place. Call it before anybody signs.
void checkRequest(Document &document, const SigningRequest &request);

/// Writes the signed document to a device. If this throws, discard what was written. To sign a document again, open it
/// again.
SigningResult sign(Document &document, const SigningRequest &request, QIODevice &output, const ShowProgress &progress);

} // namespace documents

#endif
