#include "messagecheck.h"

#include "timestamps.h"

#include <openssl/err.h>
#include <openssl/ess.h>

namespace documents {

namespace {

constexpr int kMostSigners = 8; // one is usual; checking each costs time

struct Message
{
    CmsOwner content;
    CertificatesOwner certificates;
    CMS_SignerInfo *signer = nullptr; ///< the one that is looked at
    X509 *certificate = nullptr;
    const EVP_MD *digest = nullptr;

    STACK_OF(CMS_SignerInfo) * signers() const { return CMS_get0_SignerInfos(content.get()); }
};

QString opened(Message &message, const QByteArray &bytes)
{
    const auto *place = reinterpret_cast<const unsigned char *>(bytes.constData());
    message.content.reset(d2i_CMS_ContentInfo(nullptr, &place, bytes.size()));
    if (message.content == nullptr)
        return "its message cannot be read";
    if (message.signers() == nullptr || sk_CMS_SignerInfo_num(message.signers()) < 1)
        return "its message is signed by nobody";
    if (sk_CMS_SignerInfo_num(message.signers()) > kMostSigners)
        return "its message is signed too often";
    message.certificates.reset(CMS_get1_certs(message.content.get()));
    CMS_set1_signers_certs(message.content.get(), nullptr, 0);
    return {};
}

/// Some programs sign twice in a message, with other digests. It must be the same person.
QString lookAt(Message &message, int index)
{
    const X509 *const other = message.certificate;
    message.signer = sk_CMS_SignerInfo_value(message.signers(), index);
    X509_ALGOR *algorithm = nullptr;
    CMS_SignerInfo_get0_algs(message.signer, nullptr, &message.certificate, &algorithm, nullptr);
    if (message.certificate == nullptr)
        return "the signer's certificate is not in it";
    if (other != nullptr && X509_cmp(other, message.certificate) != 0)
        return "its message is signed by several people";
    const ASN1_OBJECT *kind = nullptr;
    X509_ALGOR_get0(&kind, nullptr, nullptr, algorithm);
    message.digest = EVP_get_digestbyobj(kind);
    return message.digest == nullptr ? QString("its digest is of an unknown kind") : QString();
}

void nameAlgorithm(SignatureReport &report, const Message &message)
{
    EVP_PKEY *const key = X509_get0_pubkey(message.certificate);
    const int bits = key == nullptr ? 0 : EVP_PKEY_get_bits(key);
    const int kind = key == nullptr ? EVP_PKEY_NONE : EVP_PKEY_get_base_id(key);
    const QString name = kind == EVP_PKEY_RSA ? "RSA" : kind == EVP_PKEY_EC ? "EC" : OBJ_nid2sn(kind);
    const int digest = EVP_MD_get_type(message.digest);
    const QString digestName = QString(OBJ_nid2sn(digest)).replace("SHA2", "SHA-2").replace("SHA1", "SHA-1");
    report.algorithm = QString("%1 %2, %3").arg(name).arg(bits).arg(digestName);
    report.isAlgorithmWeak = report.isAlgorithmWeak || isWeakDigest(message.digest)
        || (kind == EVP_PKEY_RSA && bits < 2048) || (kind == EVP_PKEY_EC && bits < 224);
}

const ASN1_STRING *attributeOf(const Message &message, int kind, int type)
{
    return static_cast<const ASN1_STRING *>(CMS_signed_get0_data_by_OBJ(message.signer, OBJ_nid2obj(kind), -3, type));
}

bool hasAttribute(const Message &message, int kind)
{
    return CMS_signed_get_attr_by_NID(message.signer, kind, -1) >= 0;
}

enum class Named
{
    Nobody,
    Signer,
    Other ///< somebody else, or more than one, or nothing that can be read
};

/// Whom the signed attributes name. That prevents an exchange of the certificate for another one of the same key.
Named namedIn(const Message &message)
{
    const int oldKind = NID_id_smime_aa_signingCertificate, newKind = NID_id_smime_aa_signingCertificateV2;
    if (!hasAttribute(message, oldKind) && !hasAttribute(message, newKind))
        return Named::Nobody;
    std::unique_ptr<ESS_SIGNING_CERT, Release<ESS_SIGNING_CERT_free>> byOld;
    std::unique_ptr<ESS_SIGNING_CERT_V2, Release<ESS_SIGNING_CERT_V2_free>> byNew;
    if (const ASN1_STRING *const data = attributeOf(message, oldKind, V_ASN1_SEQUENCE)) {
        const unsigned char *place = ASN1_STRING_get0_data(data);
        byOld.reset(d2i_ESS_SIGNING_CERT(nullptr, &place, ASN1_STRING_length(data)));
    }
    if (const ASN1_STRING *const data = attributeOf(message, newKind, V_ASN1_SEQUENCE)) {
        const unsigned char *place = ASN1_STRING_get0_data(data);
        byNew.reset(d2i_ESS_SIGNING_CERT_V2(nullptr, &place, ASN1_STRING_length(data)));
    }
    if (hasAttribute(message, oldKind) != (byOld != nullptr) || hasAttribute(message, newKind) != (byNew != nullptr))
        return Named::Other;
    STACK_OF(X509) *const own = sk_X509_new_null();
    sk_X509_push(own, message.certificate);
    const bool isSigner = OSSL_ESS_check_signing_certs(byOld.get(), byNew.get(), own, 1) > 0;
    sk_X509_free(own);
    return isSigner ? Named::Signer : Named::Other;
}

/// Attributes always say what kind of content they are for: otherwise they could pass for content themselves.
bool isForData(const Message &message)
{
    const void *const kind =
        CMS_signed_get0_data_by_OBJ(message.signer, OBJ_nid2obj(NID_pkcs9_contentType), -3, V_ASN1_OBJECT);
    return kind != nullptr && OBJ_obj2nid(static_cast<const ASN1_OBJECT *>(kind)) == NID_pkcs7_data;
}

/// Checks the digest. Messages without signed attributes sign it directly.
bool signsDigest(const Message &message, const QByteArray &digest)
{
    const ASN1_OCTET_STRING *const signature = CMS_SignerInfo_get0_signature(message.signer);
    const KeyContextOwner context(EVP_PKEY_CTX_new(X509_get0_pubkey(message.certificate), nullptr));
    return context != nullptr && EVP_PKEY_verify_init(context.get()) == 1
        && EVP_PKEY_CTX_set_signature_md(context.get(), message.digest) == 1
        && EVP_PKEY_verify(context.get(), ASN1_STRING_get0_data(signature),
               static_cast<size_t>(ASN1_STRING_length(signature)),
               reinterpret_cast<const unsigned char *>(digest.constData()), static_cast<size_t>(digest.size()))
        == 1;
}

QString checked(const Message &message, const DigestBytes &digestOf, bool needsName)
{
    const QByteArray digest = digestOf(message.digest);
    if (CMS_signed_get_attr_count(message.signer) < 0 && needsName)
        return "its message signs no attributes, which its kind demands";
    if (CMS_signed_get_attr_count(message.signer) < 0)
        return signsDigest(message, digest) ? QString() : QString("the signed bytes were changed");
    const ASN1_STRING *const stated = attributeOf(message, NID_pkcs9_messageDigest, V_ASN1_OCTET_STRING);
    if (stated == nullptr || !isForData(message))
        return "its message does not say what it signs";
    const QByteArray statedDigest(
        reinterpret_cast<const char *>(ASN1_STRING_get0_data(stated)), ASN1_STRING_length(stated));
    if (statedDigest != digest)
        return "the signed bytes were changed";
    if (CMS_SignerInfo_verify(message.signer) != 1)
        return "its message was changed, or signed by another key";
    const Named named = namedIn(message);
    if (named == Named::Other)
        return "it names another certificate than the one that it was made with";
    if (named == Named::Nobody && needsName)
        return "it does not name the certificate that it was made with";
    return {};
}

void checkStamp(SignatureReport &report, const Message &message, X509_STORE *trusted)
{
    const int place = CMS_unsigned_get_attr_by_NID(message.signer, NID_id_smime_aa_timeStampToken, -1);
    if (place < 0)
        return;
    ASN1_TYPE *const value = X509_ATTRIBUTE_get0_type(CMS_unsigned_get_attr(message.signer, place), 0);
    if (value == nullptr || value->type != V_ASN1_SEQUENCE) {
        report.stampProblem = "it cannot be read";
        return;
    }
    const QByteArray token(reinterpret_cast<const char *>(ASN1_STRING_get0_data(value->value.sequence)),
        ASN1_STRING_length(value->value.sequence));
    const ASN1_OCTET_STRING *const signature = CMS_SignerInfo_get0_signature(message.signer);
    const TimestampReport stamp = checkTimestamp(
        token,
        [&](const EVP_MD *kind) {
            Digest digest(kind);
            digest.add(reinterpret_cast<const char *>(ASN1_STRING_get0_data(signature)), ASN1_STRING_length(signature));
            return digest.result();
        },
        trusted);
    report.stampProblem = stamp.isIntact ? QString() : "it is for another signature, or was changed";
    if (!stamp.isIntact)
        return;
    report.stampedTime = stamp.time;
    report.authority = stamp.authority;
    report.isStampTrusted = stamp.isTrusted;
}

/// Checks a document time stamp: a time stamp over the whole document, in place of a signature.
void checkDocumentStamp(
    SignatureReport &report, const QByteArray &bytes, const DigestBytes &digestOf, X509_STORE *trusted)
{
    const TimestampReport stamp = checkTimestamp(bytes, digestOf, trusted);
    report.signer = stamp.authority;
    report.stampedTime = stamp.time;
    report.authority = stamp.authority;
    report.isStampTrusted = stamp.isTrusted;
    report.isIntact = stamp.isIntact;
    report.isAlgorithmWeak = stamp.isWeak;
    report.trust = stamp.isTrusted ? Trust::Trusted : Trust::Unknown;
    if (!stamp.isIntact)
        report.problem = "the time stamp is for other bytes, or was changed";
    else if (!stamp.isTrusted)
        report.trustReason = "its authority is not trusted";
    report.algorithm = "time stamp (RFC 3161)";
}

} // namespace

void checkMessage(SignatureReport &report, const QByteArray &message, const std::string &subFilter,
    const DigestBytes &digestOf, const Judges &judges)
{
    X509_STORE *const trusted = judges.trusted.get();
    if (subFilter == "/ETSI.RFC3161") {
        checkDocumentStamp(report, message, digestOf, trusted);
        return;
    }
    if (subFilter != "/ETSI.CAdES.detached" && subFilter != "/adbe.pkcs7.detached") {
        report.problem = QString("signatures of the kind %1 cannot be looked at")
                             .arg(QString::fromStdString(subFilter.empty() ? "that has no name" : subFilter.substr(1)));
        return;
    }
    Message parts;
    report.problem = opened(parts, message);
    const int count = report.problem.isEmpty() ? sk_CMS_SignerInfo_num(parts.signers()) : 0;
    const bool isCades = subFilter == "/ETSI.CAdES.detached";
    if (isCades && count > 1)
        report.problem = "its message is not signed by exactly one";
    for (int i = 0; i < count && report.problem.isEmpty(); ++i) {
        report.problem = lookAt(parts, i);
        if (report.problem.isEmpty()) {
            nameAlgorithm(report, parts);
            report.problem = checked(parts, digestOf, isCades);
        }
    }
    if (parts.certificate != nullptr) {
        report.isIntact = report.problem.isEmpty();
        checkStamp(report, parts, trusted);
        judgeCertificate(report, parts.certificate, parts.certificates.get(), judges,
            report.isStampTrusted ? report.stampedTime : QDateTime());
    }
    ERR_clear_error();
}

} // namespace documents
