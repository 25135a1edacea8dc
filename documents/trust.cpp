#include "trust.h"

#include "problem.h"
#include "source.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <algorithm>

namespace documents {

namespace {

constexpr qint64 kMostTrustFile = 16 << 20;
constexpr int kSecurityLevel = 2; // 112 bits, as of RSA 2048 and SHA-224

/// Extended uses: documents (RFC 9336), e-mail, anything, and two that makers of programs have for documents.
constexpr const char *kUsesForSigning[] = {
    "1.3.6.1.5.5.7.3.36", "1.3.6.1.5.5.7.3.4", "2.5.29.37.0", "1.2.840.113583.1.1.5", "1.3.6.1.4.1.311.10.3.12"};

void releaseUses(EXTENDED_KEY_USAGE *uses)
{
    EXTENDED_KEY_USAGE_free(uses);
}

void addFile(X509_STORE *store, const QString &path)
{
    const Source file(path);
    if (file.size() > kMostTrustFile)
        throw Problem{Problem::Kind::Key, QString("%1: is too large for a file of certificates").arg(path)};
    const QByteArray bytes = file.read(0, file.size());
    const BioOwner reader = bioOf(bytes);
    int count = 0;
    for (;;) {
        const CertificateOwner certificate(PEM_read_bio_X509_AUX(reader.get(), nullptr, nullptr, nullptr));
        if (certificate == nullptr)
            break;
        X509_STORE_add_cert(store, certificate.get());
        ++count;
    }
    ERR_clear_error();
    if (count == 0)
        throw Problem{Problem::Kind::Key, QString("%1: there is no certificate (PEM) in it").arg(path)};
}

QDate dateOf(const ASN1_TIME *time)
{
    struct tm parts = {};
    ASN1_TIME_to_tm(time, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

/// A certificate with those above it, up to a trusted one.
struct Chain
{
    int error; ///< X509_V_OK or why it is not trusted
    CertificatesOwner certificates;
};

Chain chainOf(X509 *certificate, STACK_OF(X509) * others, X509_STORE *trusted, const QDateTime &at)
{
    const StoreContextOwner context(X509_STORE_CTX_new());
    X509_STORE_CTX_init(context.get(), trusted, certificate, others);
    if (at.isValid())
        X509_STORE_CTX_set_time(context.get(), 0, at.toSecsSinceEpoch());
    X509_verify_cert(context.get());
    Chain chain{X509_STORE_CTX_get_error(context.get()), CertificatesOwner(X509_STORE_CTX_get1_chain(context.get()))};
    ERR_clear_error();
    return chain;
}

Trust trustOf(int error)
{
    switch (error) {
    case X509_V_OK:
        return Trust::Trusted;
    case X509_V_ERR_CERT_HAS_EXPIRED:
    case X509_V_ERR_CERT_NOT_YET_VALID:
        return Trust::Expired;
    case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
    case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
        return Trust::SelfSigned;
    default:
        return Trust::Unknown;
    }
}

} // namespace

StoreOwner trustedStore(const QStringList &files)
{
    StoreOwner store(X509_STORE_new());
    X509_STORE_set_default_paths(store.get());
    // Trusts a certificate that the user names even when its issuer is not trusted.
    X509_STORE_set_flags(store.get(), X509_V_FLAG_PARTIAL_CHAIN);
    // No SHA-1 and no short keys above the signer: whoever can make two certificates of one digest needs no issuer.
    X509_VERIFY_PARAM_set_auth_level(X509_STORE_get0_param(store.get()), kSecurityLevel);
    ERR_clear_error();
    for (const QString &file : files)
        addFile(store.get(), file);
    return store;
}

bool isForSigning(X509 *certificate)
{
    if ((X509_get_key_usage(certificate) & (KU_DIGITAL_SIGNATURE | KU_NON_REPUDIATION)) == 0)
        return false;
    const std::unique_ptr<EXTENDED_KEY_USAGE, Release<releaseUses>> uses(
        static_cast<EXTENDED_KEY_USAGE *>(X509_get_ext_d2i(certificate, NID_ext_key_usage, nullptr, nullptr)));
    if (uses == nullptr)
        return true;
    for (int i = 0; i < sk_ASN1_OBJECT_num(uses.get()); ++i) {
        char number[64] = "";
        OBJ_obj2txt(number, sizeof number, sk_ASN1_OBJECT_value(uses.get(), i), 1);
        if (std::find(std::begin(kUsesForSigning), std::end(kUsesForSigning), QByteArray(number))
            != std::end(kUsesForSigning))
            return true;
    }
    return false;
}

void judgeCertificate(
    SignatureReport &report, X509 *certificate, STACK_OF(X509) * others, const Judges &judges, const QDateTime &stamped)
{
    report.signer = nameOf(X509_get_subject_name(certificate));
    report.issuer = nameOf(X509_get_issuer_name(certificate));
    report.validFrom = dateOf(X509_get0_notBefore(certificate));
    report.validUntil = dateOf(X509_get0_notAfter(certificate));
    report.isExpired = X509_cmp_current_time(X509_get0_notAfter(certificate)) < 0;
    Chain chain = chainOf(certificate, others, judges.trusted.get(), {});
    if (trustOf(chain.error) == Trust::Expired && stamped.isValid())
        chain = chainOf(certificate, others, judges.trusted.get(), stamped);
    report.trust = trustOf(chain.error);
    report.trustReason = chain.error == X509_V_OK ? QString() : QString(X509_verify_cert_error_string(chain.error));
    if (report.trust != Trust::Trusted)
        return;
    const RevocationLists::Answer answer = judges.revoked.look(chain.certificates.get(), stamped);
    report.isRevocationChecked = answer.isChecked;
    if (!answer.revoked.isEmpty()) {
        report.trust = Trust::Revoked;
        report.trustReason = answer.revoked;
    } else if (!isForSigning(certificate)) {
        report.trust = Trust::NotForSigning;
        report.trustReason = "the certificate is not meant for signatures";
    }
}

} // namespace documents
