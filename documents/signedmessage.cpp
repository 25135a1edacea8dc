#include "signedmessage.h"

#include "problem.h"
#include "timestamps.h"

#include <algorithm>
#include <string>
#include <vector>

namespace documents {

namespace {

constexpr unsigned int kFlags = CMS_PARTIAL | CMS_DETACHED | CMS_BINARY | CMS_NOSMIMECAP | CMS_CADES;

[[noreturn]] void fail(const char *what)
{
    const QString reason = opensslReason();
    throw Problem{Problem::Kind::Key,
        reason.isEmpty() ? QString("the signature could not be made: %1").arg(what)
                         : QString("the signature could not be made: %1 (%2)").arg(what, reason)};
}

void need(bool done, const char *what)
{
    if (!done)
        fail(what);
}

/// The attributes as they are signed: a SET OF in DER, whose elements are in the order of their bytes.
std::string attributesOf(const CMS_SignerInfo *signer)
{
    std::vector<std::string> attributes;
    for (int i = 0; i < CMS_signed_get_attr_count(signer); ++i) {
        const QByteArray der = derOf(CMS_signed_get_attr(signer, i), i2d_X509_ATTRIBUTE);
        need(!der.isEmpty(), "its attributes");
        attributes.push_back(der.toStdString());
    }
    std::sort(attributes.begin(), attributes.end());
    std::string all;
    for (const std::string &attribute : attributes)
        all += attribute;
    std::vector<unsigned char> header(16);
    unsigned char *place = header.data();
    ASN1_put_object(&place, 1, static_cast<int>(all.size()), V_ASN1_SET, V_ASN1_UNIVERSAL);
    return std::string(header.data(), place) + all;
}

std::vector<unsigned char> signatureOf(EVP_PKEY *key, const std::string &bytes)
{
    const DigestOwner context(EVP_MD_CTX_new());
    const auto *data = reinterpret_cast<const unsigned char *>(bytes.data());
    size_t size = 0;
    need(EVP_DigestSignInit(context.get(), nullptr, EVP_sha256(), nullptr, key) == 1, "the key does not sign");
    need(EVP_DigestSignUpdate(context.get(), data, bytes.size()) == 1, "the key does not sign");
    need(EVP_DigestSignFinal(context.get(), nullptr, &size) == 1, "the key does not sign");
    std::vector<unsigned char> signature(size);
    need(EVP_DigestSignFinal(context.get(), signature.data(), &size) == 1, "the key or its token refused to sign");
    signature.resize(size);
    return signature;
}

void addTimestamp(CMS_SignerInfo *signer, const QString &url, const std::function<void()> &whileWaiting)
{
    const ASN1_OCTET_STRING *const signature = CMS_SignerInfo_get0_signature(signer);
    const QByteArray bytes(
        reinterpret_cast<const char *>(ASN1_STRING_get0_data(signature)), ASN1_STRING_length(signature));
    const QByteArray token = fetchTimestamp(url, bytes, whileWaiting);
    need(CMS_unsigned_add1_attr_by_NID(
             signer, NID_id_smime_aa_timeStampToken, V_ASN1_SEQUENCE, token.constData(), token.size())
            == 1,
        "the time stamp cannot be added");
}

} // namespace

// Not with CMS_final(), which would add a signing-time, and PAdES baseline forbids that.
QByteArray signedMessage(const SigningKey &key, const QByteArray &digest, const QString &timestampUrl,
    const std::function<void()> &whileWaiting)
{
    const CmsOwner message(CMS_sign(nullptr, nullptr, nullptr, nullptr, kFlags));
    need(message != nullptr, "no memory");
    CMS_SignerInfo *const signer = CMS_add1_signer(message.get(), key.certificate(), key.key(), EVP_sha256(), kFlags);
    need(signer != nullptr, "key and certificate do not belong together");
    for (int i = 0; key.chain() != nullptr && i < sk_X509_num(key.chain()); ++i)
        CMS_add1_cert(message.get(), sk_X509_value(key.chain(), i)); // fails only for one that was added before
    need(CMS_signed_add1_attr_by_NID(signer, NID_pkcs9_contentType, V_ASN1_OBJECT, OBJ_nid2obj(NID_pkcs7_data), -1) == 1
            && CMS_signed_add1_attr_by_NID(
                   signer, NID_pkcs9_messageDigest, V_ASN1_OCTET_STRING, digest.constData(), digest.size())
                == 1,
        "its attributes");
    const std::vector<unsigned char> signature = signatureOf(key.key(), attributesOf(signer));
    need(ASN1_STRING_set(CMS_SignerInfo_get0_signature(signer), signature.data(), static_cast<int>(signature.size()))
            == 1,
        "no memory");
    if (!timestampUrl.isEmpty())
        addTimestamp(signer, timestampUrl, whileWaiting);
    opensslReason();
    const QByteArray der = derOf(message.get(), i2d_CMS_ContentInfo);
    need(!der.isEmpty(), "it cannot be encoded");
    return der;
}

int roomFor(const SigningKey &key, const QString &timestampUrl)
{
    constexpr int kMessage = 1024, kTimestamp = 12288;
    int size = kMessage + 2 * EVP_PKEY_get_size(key.key()) + i2d_X509(key.certificate(), nullptr);
    for (int i = 0; key.chain() != nullptr && i < sk_X509_num(key.chain()); ++i)
        size += i2d_X509(sk_X509_value(key.chain(), i), nullptr);
    return size + (timestampUrl.isEmpty() ? 0 : kTimestamp);
}

} // namespace documents
