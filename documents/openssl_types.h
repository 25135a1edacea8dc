/// @file
/// OpenSSL's objects with owners, and its errors in words.
#ifndef DOCUMENTS_OPENSSL_TYPES_H
#define DOCUMENTS_OPENSSL_TYPES_H

#include <QByteArray>
#include <QString>

#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/evp.h>
#include <openssl/ts.h>
#include <openssl/x509.h>

#include <algorithm>
#include <memory>

namespace documents {

template <auto release>
struct Release
{
    template <class Object>
    void operator()(Object *object) const
    {
        release(object);
    }
};

using BioOwner = std::unique_ptr<BIO, Release<BIO_free>>;
using CertificateOwner = std::unique_ptr<X509, Release<X509_free>>;
using CmsOwner = std::unique_ptr<CMS_ContentInfo, Release<CMS_ContentInfo_free>>;
using CrlOwner = std::unique_ptr<X509_CRL, Release<X509_CRL_free>>;
using DigestOwner = std::unique_ptr<EVP_MD_CTX, Release<EVP_MD_CTX_free>>;
using KeyOwner = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using KeyContextOwner = std::unique_ptr<EVP_PKEY_CTX, Release<EVP_PKEY_CTX_free>>;
using StoreOwner = std::unique_ptr<X509_STORE, Release<X509_STORE_free>>;
using StoreContextOwner = std::unique_ptr<X509_STORE_CTX, Release<X509_STORE_CTX_free>>;

inline void releaseCertificates(STACK_OF(X509) * certificates)
{
    sk_X509_pop_free(certificates, X509_free);
}
using CertificatesOwner = std::unique_ptr<STACK_OF(X509), Release<releaseCertificates>>;

/// Why the last call of OpenSSL failed, or an empty text. Clears OpenSSL's list of errors.
QString opensslReason();

/// A BIO that reads the bytes, which must outlive it.
BioOwner bioOf(const QByteArray &bytes);

/// What was written to a memory BIO.
QByteArray contentOf(BIO *bio);

/// An object's DER, made by its i2d function; empty when that fails.
template <class Object>
QByteArray derOf(const Object *object, int (*encode)(const Object *, unsigned char **))
{
    unsigned char *bytes = nullptr;
    const int size = encode(object, &bytes);
    const QByteArray der(reinterpret_cast<char *>(bytes), std::max(size, 0));
    OPENSSL_free(bytes);
    return der;
}

/// The common name, else the organisation, else all of it.
QString nameOf(const X509_NAME *name);

/// The day in UTC, as in 2026-01-31.
QString dayOf(const ASN1_TIME *time);

/// SHA-1 and older ones, of which two inputs with one digest can be made.
bool isWeakDigest(const EVP_MD *kind);

/// SHA-256 of pieces.
class Digest
{
public:
    explicit Digest(const EVP_MD *kind = EVP_sha256());
    void add(const char *bytes, qint64 count);
    QByteArray result();

private:
    DigestOwner m_context;
};

} // namespace documents

#endif
