#include "documents.h"

#include "target.h"

#include <openssl/ec.h>

#include <cstdlib>

namespace fuzz {

namespace {

class OwnKey : public documents::SigningKey
{
public:
    OwnKey()
        : m_key(EVP_EC_gen("P-256"))
        , m_certificate(X509_new())
    {
        X509_set_version(m_certificate.get(), X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(m_certificate.get()), 1);
        X509_gmtime_adj(X509_getm_notBefore(m_certificate.get()), -3600);
        X509_gmtime_adj(X509_getm_notAfter(m_certificate.get()), 86400);
        X509_NAME *const name = X509_get_subject_name(m_certificate.get());
        X509_NAME_add_entry_by_txt(
            name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char *>("Fuzzer"), -1, -1, 0);
        X509_set_issuer_name(m_certificate.get(), name);
        X509_set_pubkey(m_certificate.get(), m_key.get());
        X509_sign(m_certificate.get(), m_key.get(), EVP_sha256());
    }

    EVP_PKEY *key() const override { return m_key.get(); }
    X509 *certificate() const override { return m_certificate.get(); }
    STACK_OF(X509) * chain() const override { return nullptr; }

private:
    documents::KeyOwner m_key;
    documents::CertificateOwner m_certificate;
};

} // namespace

void withDocument(const uint8_t *data, size_t size, const std::function<void(documents::Document &)> &work)
{
    try {
        documents::Document document(
            documents::Content{QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)), "input"});
        work(document);
    } catch (const documents::Problem &problem) {
        KV_PROMISE(!problem.message.isEmpty());
    }
}

const documents::SigningKey &signingKey()
{
    static const OwnKey key;
    return key;
}

documents::VerifyReport verified(documents::Document &document)
{
    // The system's certificates would be read again for each input, which takes far longer than the rest.
    static const int first = setenv("SSL_CERT_FILE", "/dev/null", 1);
    KV_PROMISE(first == 0);
    return documents::verify(document, {}, [](qint64, qint64) {});
}

} // namespace fuzz
