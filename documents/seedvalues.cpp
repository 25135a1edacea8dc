#include "seedvalues.h"

#include <openssl/x509v3.h>

#include <algorithm>

namespace documents {

namespace {

// The entries that are demanded and not only proposed, as bits of /Ff.
constexpr int kFilter = 1, kSubFilter = 2, kVersion = 4, kReasons = 8, kRevocation = 32, kDigest = 64, kLock = 128,
              kAppearance = 256;
constexpr int kSubject = 1, kIssuer = 2, kPolicy = 4, kSubjectNames = 8, kKeyUsage = 32;

constexpr char kCades[] = "ETSI.CAdES.detached", kPkcs7[] = "adbe.pkcs7.detached";
constexpr int kNewestVersion = 3;

long long flagsOf(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle flags = dictionary.getKey("/Ff");
    return flags.isInteger() ? flags.getIntValue() : 0;
}

/// Whether one of these certificates (DER, in an array) is the one that is looked for.
bool holds(QPDFObjectHandle certificates, X509 *wanted)
{
    if (!certificates.isArray())
        return false;
    const std::vector<QPDFObjectHandle> all = certificates.getArrayAsVector();
    return std::any_of(all.begin(), all.end(), [&](QPDFObjectHandle entry) {
        if (!entry.isString())
            return false;
        const std::string bytes = entry.getStringValue();
        const auto *place = reinterpret_cast<const unsigned char *>(bytes.data());
        const CertificateOwner certificate(d2i_X509(nullptr, &place, static_cast<long>(bytes.size())));
        opensslReason();
        return certificate != nullptr && X509_cmp(certificate.get(), wanted) == 0;
    });
}

bool holdsAnIssuer(QPDFObjectHandle certificates, const SigningKey &key)
{
    if (holds(certificates, key.certificate()))
        return true;
    for (int i = 0; key.chain() != nullptr && i < sk_X509_num(key.chain()); ++i) {
        if (holds(certificates, sk_X509_value(key.chain(), i)))
            return true;
    }
    return false;
}

/// One sign for each usage in the order of the certificate's bits: 1 must be, 0 must not be, X may be.
bool fitsUsage(const std::string &pattern, X509 *certificate)
{
    constexpr uint32_t kUsages[] = {KU_DIGITAL_SIGNATURE, KU_NON_REPUDIATION, KU_KEY_ENCIPHERMENT, KU_DATA_ENCIPHERMENT,
        KU_KEY_AGREEMENT, KU_KEY_CERT_SIGN, KU_CRL_SIGN, KU_ENCIPHER_ONLY, KU_DECIPHER_ONLY};
    const uint32_t usage = X509_get_key_usage(certificate);
    for (size_t i = 0; i < std::min(pattern.size(), std::size(kUsages)); ++i) {
        const bool has = (usage & kUsages[i]) != 0;
        if ((pattern[i] == '1' && !has) || (pattern[i] == '0' && has))
            return false;
    }
    return true;
}

bool fitsAnyUsage(QPDFObjectHandle patterns, X509 *certificate)
{
    if (!patterns.isArray())
        return true;
    const std::vector<QPDFObjectHandle> all = patterns.getArrayAsVector();
    return std::any_of(all.begin(), all.end(), [&](QPDFObjectHandle pattern) {
        return pattern.isString() && fitsUsage(pattern.getStringValue(), certificate);
    });
}

} // namespace

SeedValues::SeedValues(QPDFObjectHandle field)
    : m_values(field.getKey("/SV"))
{
    if (m_values.isDictionary())
        m_flags = flagsOf(m_values);
}

bool SeedValues::needs(int flag) const
{
    return (m_flags & flag) != 0;
}

/// The names or strings of an entry; nothing where there is no such entry.
std::optional<QStringList> SeedValues::texts(const char *key) const
{
    QPDFObjectHandle values = m_values, entry = values.isDictionary() ? values.getKey(key) : values;
    if (!entry.isArray() && !entry.isName() && !entry.isString())
        return std::nullopt;
    QStringList texts;
    const std::vector<QPDFObjectHandle> items =
        entry.isArray() ? entry.getArrayAsVector() : std::vector<QPDFObjectHandle>{entry};
    for (QPDFObjectHandle item : items) {
        if (item.isName())
            texts += QString::fromStdString(item.getName()).mid(1);
        else if (item.isString())
            texts += QString::fromStdString(item.getUTF8Value());
    }
    return texts;
}

const char *SeedValues::subFilter() const
{
    const std::optional<QStringList> kinds = texts("/SubFilter");
    return kinds.has_value() && !kinds->contains(kCades) && kinds->contains(kPkcs7) ? kPkcs7 : kCades;
}

QString SeedValues::certificateRefusal(const SigningKey &key) const
{
    QPDFObjectHandle wanted = QPDFObjectHandle(m_values).getKey("/Cert");
    if (!wanted.isDictionary())
        return {};
    const long long flags = flagsOf(wanted);
    if ((flags & kSubject) != 0 && !holds(wanted.getKey("/Subject"), key.certificate()))
        return "takes certificates of other people only";
    if ((flags & kIssuer) != 0 && !holdsAnIssuer(wanted.getKey("/Issuer"), key))
        return "takes certificates of other issuers only";
    if ((flags & kKeyUsage) != 0 && !fitsAnyUsage(wanted.getKey("/KeyUsage"), key.certificate()))
        return "takes certificates for another use only";
    if ((flags & (kPolicy | kSubjectNames)) != 0)
        return "chooses its certificates by their policy or their names, which is not supported";
    return {};
}

QString SeedValues::refusal(const SigningRequest &request) const
{
    QPDFObjectHandle values = m_values;
    if (!values.isDictionary())
        return {};
    QPDFObjectHandle stamp = values.getKey("/TimeStamp"), certification = values.getKey("/MDP");
    const std::optional<QStringList> filter = texts("/Filter"), kinds = texts("/SubFilter"),
                                     digests = texts("/DigestMethod"), reasons = texts("/Reasons");
    QPDFObjectHandle version = values.getKey("/V");
    if (needs(kFilter) && filter.has_value() && !filter->contains("Adobe.PPKLite"))
        return QString("wants to be signed by %1").arg(filter->join(", "));
    if (needs(kSubFilter) && kinds.has_value() && !kinds->contains(subFilter()))
        return QString("wants a signature of the kind %1").arg(kinds->join(" or "));
    if (needs(kVersion) && version.isNumber() && version.getNumericValue() > kNewestVersion)
        return "asks for something that is newer than this program";
    if (needs(kDigest) && digests.has_value() && !digests->contains("SHA256"))
        return QString("wants the digest %1; signatures are made with SHA256").arg(digests->join(" or "));
    if (needs(kReasons) && reasons.has_value()) {
        const bool wantsNone = reasons->isEmpty() || *reasons == QStringList(".");
        if (wantsNone && !request.reason.isEmpty())
            return "takes no reason";
        if (!wantsNone && !reasons->contains(request.reason))
            return QString("wants one of these reasons: \"%1\"").arg(reasons->join("\", \""));
    }
    if (certification.isDictionary() && certification.getKey("/P").isInteger()
        && certification.getKey("/P").getIntValue() != 0)
        return "wants a signature that certifies the document, which is not supported";
    if (needs(kRevocation) && values.getKey("/AddRevInfo").isBool() && values.getKey("/AddRevInfo").getBoolValue())
        return "wants a proof that the certificate was not revoked, which is not supported";
    if (needs(kLock) || needs(kAppearance))
        return "asks for a lock or an appearance that is not supported";
    if (stamp.isDictionary() && (flagsOf(stamp) & 1) != 0 && request.timestampUrl.isEmpty()) {
        QPDFObjectHandle url = stamp.getKey("/URL");
        return QString("wants a time stamp%1")
            .arg(url.isString() ? ", such as by " + QString::fromStdString(url.getUTF8Value()) : QString());
    }
    return certificateRefusal(*request.key);
}

} // namespace documents
