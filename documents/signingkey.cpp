#include "signingkey.h"

#include "problem.h"
#include "trust.h"

#include <QDateTime>

namespace documents {

namespace {

Problem unfit(const QString &message)
{
    return {Problem::Kind::Key, message};
}

} // namespace

QString SigningKey::owner() const
{
    return nameOf(X509_get_subject_name(certificate()));
}

std::unique_ptr<SigningKey> openSigningKey(const QString &place, const AskPassword &ask)
{
    return place.startsWith("pkcs11:") ? openPkcs11(place, ask) : openPkcs12(place, ask);
}

void needFit(const SigningKey &key)
{
    const int kind = EVP_PKEY_get_base_id(key.key());
    if (kind != EVP_PKEY_RSA && kind != EVP_PKEY_EC)
        throw unfit("the key is neither an RSA nor an EC key; other keys cannot sign a PDF with SHA-256");
    X509 *const certificate = key.certificate();
    if (X509_cmp_current_time(X509_get0_notAfter(certificate)) < 0)
        throw unfit(QString("the certificate of %1 expired on %2; sign with a newer one")
                        .arg(key.owner(), dayOf(X509_get0_notAfter(certificate))));
    if (X509_cmp_current_time(X509_get0_notBefore(certificate)) > 0)
        throw unfit(QString("the certificate of %1 is not valid before %2")
                        .arg(key.owner(), dayOf(X509_get0_notBefore(certificate))));
    if (!isForSigning(certificate))
        throw unfit(QString("the certificate of %1 is not meant for signatures").arg(key.owner()));
}

} // namespace documents
