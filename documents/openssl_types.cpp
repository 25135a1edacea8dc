#include "openssl_types.h"

#include <QDate>

#include <openssl/err.h>

namespace documents {

QString opensslReason()
{
    const unsigned long error = ERR_peek_last_error();
    const char *const reason = ERR_reason_error_string(error);
    ERR_clear_error();
    return reason == nullptr ? QString() : QString(reason);
}

BioOwner bioOf(const QByteArray &bytes)
{
    return BioOwner(BIO_new_mem_buf(bytes.constData(), bytes.size()));
}

QByteArray contentOf(BIO *bio)
{
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(bio, &bytes);
    return {bytes, static_cast<int>(size)};
}

namespace {

QString entryOf(const X509_NAME *name, int kind)
{
    const int place = X509_NAME_get_index_by_NID(name, kind, -1);
    if (place < 0)
        return {};
    unsigned char *text = nullptr;
    const int size = ASN1_STRING_to_UTF8(&text, X509_NAME_ENTRY_get_data(X509_NAME_get_entry(name, place)));
    const QString entry = size > 0 ? QString::fromUtf8(reinterpret_cast<char *>(text), size) : QString();
    OPENSSL_free(text);
    return entry;
}

} // namespace

QString nameOf(const X509_NAME *name)
{
    for (const int kind : {NID_commonName, NID_organizationName}) {
        const QString entry = entryOf(name, kind);
        if (!entry.isEmpty())
            return entry;
    }
    const BioOwner text(BIO_new(BIO_s_mem()));
    X509_NAME_print_ex(text.get(), name, 0, XN_FLAG_ONELINE & ~ASN1_STRFLGS_ESC_MSB);
    return QString::fromUtf8(contentOf(text.get()));
}

QString dayOf(const ASN1_TIME *time)
{
    struct tm parts = {};
    ASN1_TIME_to_tm(time, &parts);
    return QDate(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday).toString(Qt::ISODate);
}

bool isWeakDigest(const EVP_MD *kind)
{
    constexpr int kLeast = 28; // bytes, as of SHA-224
    return kind == nullptr || EVP_MD_get_size(kind) < kLeast;
}

Digest::Digest(const EVP_MD *kind)
    : m_context(EVP_MD_CTX_new())
{
    EVP_DigestInit_ex(m_context.get(), kind, nullptr);
}

void Digest::add(const char *bytes, qint64 count)
{
    EVP_DigestUpdate(m_context.get(), bytes, static_cast<size_t>(count));
}

QByteArray Digest::result()
{
    unsigned char bytes[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    EVP_DigestFinal_ex(m_context.get(), bytes, &size);
    return {reinterpret_cast<char *>(bytes), static_cast<int>(size)};
}

} // namespace documents
