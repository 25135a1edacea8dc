/// @file
/// What an issuer has answered to the question whether a certificate was taken back (OCSP).
#ifndef DOCUMENTS_OCSPANSWERS_H
#define DOCUMENTS_OCSPANSWERS_H

#include "openssl_types.h"

#include <openssl/ocsp.h>

namespace documents {

using OcspOwner = std::unique_ptr<OCSP_BASICRESP, Release<OCSP_BASICRESP_free>>;

/// An answer about one certificate. The times belong to the answer.
struct OcspStatus
{
    bool isThere = false;
    bool isRevoked = false;
    const ASN1_TIME *revoked = nullptr;
    const ASN1_TIME *made = nullptr; ///< what it says was true then
    const ASN1_TIME *next = nullptr; ///< by then there is a newer one; null where that is not said
};

/// The answer in DER; null for anything else.
OcspOwner ocspAnswer(const QByteArray &bytes);

/// What the answer says of the certificate. Nothing, unless the issuer signed it or whom the issuer has named for that.
OcspStatus ocspStatus(OCSP_BASICRESP *answer, X509 *certificate, X509 *issuer);

} // namespace documents

#endif
