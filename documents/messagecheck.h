/// @file
/// Whether a signature's message fits the bytes that it covers.
#ifndef DOCUMENTS_MESSAGECHECK_H
#define DOCUMENTS_MESSAGECHECK_H

#include "openssl_types.h"
#include "trust.h"

#include <functional>

namespace documents {

/// Computes the digest of the covered bytes with the given algorithm.
using DigestBytes = std::function<QByteArray(const EVP_MD *)>;

/// Fills in what the message says of the signer, and whether it fits.
/// @param subFilter the kind of message, as the signature dictionary names it
void checkMessage(SignatureReport &report, const QByteArray &message, const std::string &subFilter,
    const DigestBytes &digestOf, const Judges &judges);

} // namespace documents

#endif
