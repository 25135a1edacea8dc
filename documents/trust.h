/// @file
/// Whether a certificate is trusted: by the system, or because the user says so.
#ifndef DOCUMENTS_TRUST_H
#define DOCUMENTS_TRUST_H

#include "openssl_types.h"
#include "revocation.h"
#include "verify.h"

namespace documents {

/// By what certificates are judged.
struct Judges
{
    StoreOwner trusted;
    RevocationLists revoked;
};

/// The system's certificates and those in these PEM files. Throws a Problem for a file without any.
StoreOwner trustedStore(const QStringList &files);

/// Whether a certificate is for signatures under documents: a web server's is not, though its issuer is trusted.
bool isForSigning(X509 *certificate);

/// Fills in what a certificate says and whether it is trusted.
/// @param others certificates that came with the signature
/// @param stamped when a trusted time stamp says it was used; invalid without one
void judgeCertificate(SignatureReport &report, X509 *certificate, STACK_OF(X509) * others, const Judges &judges,
    const QDateTime &stamped);

} // namespace documents

#endif
