/// @file
/// Pen data sealed for one certificate, kept with the ink in the document.
#ifndef DOCUMENTS_SEAL_H
#define DOCUMENTS_SEAL_H

#include "document.h"
#include "signingkey.h"

#include <vector>

namespace documents {

/// Encrypts for the certificate in a PEM or DER file, with CMS and AES-256-GCM, which reveals changes and wrong keys.
/// Throws a Problem.
QByteArray sealFor(const QString &certificateFile, const QByteArray &content);

/// Opens with the private key in a PEM or PKCS#12 file. Throws a Problem when the key is another one.
QByteArray unseal(const QByteArray &sealed, const QString &keyFile, const AskPassword &ask);

/// Everything sealed in a document, in the order of its pages.
std::vector<QByteArray> sealedIn(const Document &document);

} // namespace documents

#endif
