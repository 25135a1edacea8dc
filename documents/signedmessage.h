/// @file
/// The CMS message of a signature, as CAdES and PAdES baseline B have it.
#ifndef DOCUMENTS_SIGNEDMESSAGE_H
#define DOCUMENTS_SIGNEDMESSAGE_H

#include "signingkey.h"

namespace documents {

/// Signs a SHA-256 digest. There is a signing-certificate-v2 attribute and no signing-time: the PDF tells the time.
/// @param timestampUrl a server of RFC 3161 that is asked for a time stamp over the signature; empty for none
/// @param whileWaiting is called about once a second while the server is waited for; what it throws ends that
/// @return DER. Throws a Problem.
QByteArray signedMessage(const SigningKey &key, const QByteArray &digest, const QString &timestampUrl,
    const std::function<void()> &whileWaiting);

/// How many bytes such a message may have.
int roomFor(const SigningKey &key, const QString &timestampUrl);

} // namespace documents

#endif
