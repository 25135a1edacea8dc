#include "ocspanswers.h"

#include <openssl/err.h>

namespace documents {

namespace {

using ResponseOwner = std::unique_ptr<OCSP_RESPONSE, Release<OCSP_RESPONSE_free>>;
using IdOwner = std::unique_ptr<OCSP_CERTID, Release<OCSP_CERTID_free>>;

bool isSignedFor(OCSP_BASICRESP *answer, X509 *issuer)
{
    const StoreOwner trusted(X509_STORE_new());
    X509_STORE_set_flags(trusted.get(), X509_V_FLAG_PARTIAL_CHAIN);
    X509_STORE_add_cert(trusted.get(), issuer);
    STACK_OF(X509) *const known = sk_X509_new_null();
    sk_X509_push(known, issuer);
    const bool isSigned = OCSP_basic_verify(answer, known, trusted.get(), 0) == 1;
    sk_X509_free(known);
    return isSigned;
}

bool isAbout(OCSP_SINGLERESP *single, X509 *certificate, X509 *issuer)
{
    auto *const id = const_cast<OCSP_CERTID *>(OCSP_SINGLERESP_get0_id(single)); // only looked at
    ASN1_OBJECT *kind = nullptr;
    OCSP_id_get0_info(nullptr, &kind, nullptr, nullptr, id);
    const EVP_MD *const digest = EVP_get_digestbyobj(kind);
    const IdOwner own(digest == nullptr ? nullptr : OCSP_cert_to_id(digest, certificate, issuer));
    return own != nullptr && OCSP_id_cmp(own.get(), id) == 0;
}

} // namespace

OcspOwner ocspAnswer(const QByteArray &bytes)
{
    const auto *place = reinterpret_cast<const unsigned char *>(bytes.constData());
    const ResponseOwner response(d2i_OCSP_RESPONSE(nullptr, &place, bytes.size()));
    OcspOwner answer(response == nullptr || OCSP_response_status(response.get()) != OCSP_RESPONSE_STATUS_SUCCESSFUL
            ? nullptr
            : OCSP_response_get1_basic(response.get()));
    ERR_clear_error();
    return answer;
}

OcspStatus ocspStatus(OCSP_BASICRESP *answer, X509 *certificate, X509 *issuer)
{
    constexpr int kMost = 100; // one is usual
    OcspStatus status;
    for (int i = 0; i < std::min(OCSP_resp_count(answer), kMost) && !status.isThere; ++i) {
        OCSP_SINGLERESP *const single = OCSP_resp_get0(answer, i);
        if (!isAbout(single, certificate, issuer) || !isSignedFor(answer, issuer))
            continue;
        ASN1_GENERALIZEDTIME *revoked = nullptr, *made = nullptr, *next = nullptr;
        const int kind = OCSP_single_get0_status(single, nullptr, &revoked, &made, &next);
        status = {kind == V_OCSP_CERTSTATUS_GOOD || kind == V_OCSP_CERTSTATUS_REVOKED,
            kind == V_OCSP_CERTSTATUS_REVOKED, revoked, made, next};
    }
    ERR_clear_error();
    return status;
}

} // namespace documents
