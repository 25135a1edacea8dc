// Keys from PKCS#12 files.
#include "problem.h"
#include "signingkey.h"
#include "source.h"

#include <openssl/pkcs12.h>

namespace documents {

namespace {

using Pkcs12Owner = std::unique_ptr<PKCS12, Release<PKCS12_free>>;

constexpr qint64 kMostBytes = 1 << 20;

class Pkcs12Key : public SigningKey
{
public:
    Pkcs12Key(KeyOwner key, CertificateOwner certificate, CertificatesOwner chain)
        : m_key(std::move(key))
        , m_certificate(std::move(certificate))
        , m_chain(std::move(chain))
    {
    }

    EVP_PKEY *key() const override { return m_key.get(); }
    X509 *certificate() const override { return m_certificate.get(); }
    STACK_OF(X509) * chain() const override { return m_chain.get(); }

private:
    KeyOwner m_key;
    CertificateOwner m_certificate;
    CertificatesOwner m_chain;
};

Pkcs12Owner readPkcs12(const QString &path)
{
    const Source file(path);
    if (file.size() > kMostBytes)
        throw Problem{Problem::Kind::Key, QString("%1: is too large for a PKCS#12 file").arg(path)};
    const QByteArray bytes = file.read(0, file.size());
    const unsigned char *place = reinterpret_cast<const unsigned char *>(bytes.constData());
    Pkcs12Owner content(d2i_PKCS12(nullptr, &place, bytes.size()));
    if (content == nullptr) {
        opensslReason();
        throw Problem{Problem::Kind::Key, QString("%1: is no PKCS#12 file").arg(path)};
    }
    return content;
}

bool isRight(PKCS12 *content, const QByteArray &password)
{
    return PKCS12_mac_present(content) == 0 || PKCS12_verify_mac(content, password.constData(), password.size()) == 1;
}

} // namespace

std::unique_ptr<SigningKey> openPkcs12(const QString &path, const AskPassword &ask)
{
    const Pkcs12Owner content = readPkcs12(path);
    QByteArray password = "";
    if (!isRight(content.get(), password))
        password = ask(path);
    EVP_PKEY *key = nullptr;
    X509 *certificate = nullptr;
    STACK_OF(X509) *chain = nullptr;
    const bool isOpen = isRight(content.get(), password)
        && PKCS12_parse(content.get(), password.constData(), &key, &certificate, &chain) == 1;
    KeyOwner keyOwner(key);
    CertificateOwner certificateOwner(certificate);
    CertificatesOwner chainOwner(chain);
    OPENSSL_cleanse(password.data(), static_cast<size_t>(password.size()));
    const QString reason = opensslReason();
    if (!isOpen)
        throw Problem{Problem::Kind::Key,
            reason == "unsupported"
                ? QString("%1: is encrypted in a way that OpenSSL no longer takes; export it anew").arg(path)
                : QString("%1: the password is another one").arg(path)};
    if (key == nullptr || certificate == nullptr)
        throw Problem{Problem::Kind::Key, QString("%1: there is no key with a certificate in it").arg(path)};
    return std::make_unique<Pkcs12Key>(std::move(keyOwner), std::move(certificateOwner), std::move(chainOwner));
}

} // namespace documents
