#include "seal.h"

#include "problem.h"
#include "source.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>

namespace documents {

namespace {

constexpr qint64 kMostSealFile = 1 << 20;

QByteArray contentOfFile(const QString &path)
{
    const Source file(path);
    if (file.size() > kMostSealFile)
        throw Problem{Problem::Kind::Key, QString("%1: is too large for a key or a certificate").arg(path)};
    return file.read(0, file.size());
}

CertificateOwner certificateIn(const QByteArray &bytes)
{
    CertificateOwner certificate(PEM_read_bio_X509(bioOf(bytes).get(), nullptr, nullptr, nullptr));
    if (certificate == nullptr)
        certificate.reset(d2i_X509_bio(bioOf(bytes).get(), nullptr));
    ERR_clear_error();
    return certificate;
}

void useOaep(CMS_ContentInfo *message)
{
    STACK_OF(CMS_RecipientInfo) *const recipients = CMS_get0_RecipientInfos(message);
    EVP_PKEY_CTX *const context = CMS_RecipientInfo_get0_pkey_ctx(sk_CMS_RecipientInfo_value(recipients, 0));
    EVP_PKEY_CTX_set_rsa_padding(context, RSA_PKCS1_OAEP_PADDING);
    EVP_PKEY_CTX_set_rsa_oaep_md(context, EVP_sha256());
}

struct PasswordGiver
{
    const AskPassword &ask;
    QString file;
};

int givePassword(char *buffer, int size, int, void *data)
{
    const PasswordGiver &giver = *static_cast<PasswordGiver *>(data);
    const QByteArray password = giver.ask(giver.file);
    if (password.size() > size)
        return -1;
    std::copy(password.begin(), password.end(), buffer);
    return password.size();
}

KeyOwner keyIn(const QString &path, const AskPassword &ask)
{
    const QByteArray bytes = contentOfFile(path);
    if (!bytes.contains("-----BEGIN")) {
        const std::unique_ptr<SigningKey> both = openPkcs12(path, ask);
        EVP_PKEY_up_ref(both->key());
        return KeyOwner(both->key());
    }
    PasswordGiver giver{ask, path};
    KeyOwner key(PEM_read_bio_PrivateKey(bioOf(bytes).get(), nullptr, givePassword, &giver));
    if (key == nullptr) {
        const bool hasKey = bytes.contains("PRIVATE KEY");
        opensslReason();
        throw Problem{Problem::Kind::Key,
            hasKey ? QString("%1: the password is another one").arg(path)
                   : QString("%1: there is no private key in it").arg(path)};
    }
    return key;
}

} // namespace

QByteArray sealFor(const QString &certificateFile, const QByteArray &content)
{
    const CertificateOwner certificate = certificateIn(contentOfFile(certificateFile));
    if (certificate == nullptr)
        throw Problem{Problem::Kind::Key, QString("%1: there is no certificate in it").arg(certificateFile)};
    const CmsOwner message(CMS_encrypt(nullptr, nullptr, EVP_aes_256_gcm(), CMS_PARTIAL | CMS_BINARY));
    const bool isRsa = EVP_PKEY_get_base_id(X509_get0_pubkey(certificate.get())) == EVP_PKEY_RSA;
    bool isDone = message != nullptr
        && CMS_add1_recipient_cert(message.get(), certificate.get(), isRsa ? CMS_KEY_PARAM : 0) != nullptr;
    if (isDone && isRsa)
        useOaep(message.get());
    isDone = isDone && CMS_final(message.get(), bioOf(content).get(), nullptr, CMS_BINARY) == 1;
    const QString reason = opensslReason();
    if (!isDone)
        throw Problem{Problem::Kind::Key,
            QString("%1: nothing can be sealed for this certificate (%2)").arg(certificateFile, reason)};
    return derOf(message.get(), i2d_CMS_ContentInfo);
}

QByteArray unseal(const QByteArray &sealed, const QString &keyFile, const AskPassword &ask)
{
    const KeyOwner key = keyIn(keyFile, ask);
    const CmsOwner message(d2i_CMS_bio(bioOf(sealed).get(), nullptr));
    const BioOwner content(BIO_new(BIO_s_mem()));
    // Telling a wrong key from broken content helps no attacker: who gets the answer has the file and the key.
    const bool isOpen = message != nullptr
        && CMS_decrypt(message.get(), key.get(), nullptr, nullptr, content.get(), CMS_BINARY | CMS_DEBUG_DECRYPT) == 1;
    opensslReason();
    if (!isOpen)
        throw Problem{Problem::Kind::Key, QString("%1: the pen data was sealed for another key").arg(keyFile)};
    return contentOf(content.get());
}

} // namespace documents
