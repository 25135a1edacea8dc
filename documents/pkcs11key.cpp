// Keys on tokens: smart cards, USB sticks, software tokens.
#include "pkcs11uri.h"
#include "problem.h"
#include "signingkey.h"
#include "source.h"

#include <QUrl>

#include <libp11.h>

#include <algorithm>
#include <sys/stat.h>
#include <vector>

namespace documents {

namespace {

constexpr char kAllModules[] = "p11-kit-proxy.so"; // offers all modules of the system's configuration

Problem tokenProblem(const QString &message)
{
    const QString reason = opensslReason();
    return {Problem::Kind::Key, reason.isEmpty() ? message : QString("%1 (%2)").arg(message, reason)};
}

/// The loader would wait for the other end of a named pipe.
void refuseNoFile(const QByteArray &path)
{
    struct stat status = {};
    if (path.contains('/') && stat(path.constData(), &status) == 0 && !S_ISREG(status.st_mode))
        throw Problem{Problem::Kind::File, QString("%1: is no regular file").arg(QString::fromLocal8Bit(path))};
}

/// A loaded PKCS#11 module.
class Module
{
public:
    explicit Module(const QByteArray &path)
    {
        refuseNoFile(path);
        m_context = PKCS11_CTX_new();
        if (PKCS11_CTX_load(m_context, path.constData()) != 0) {
            const Problem problem =
                tokenProblem(QString("the module %1 for tokens cannot be loaded").arg(QString::fromLocal8Bit(path)));
            PKCS11_CTX_free(m_context);
            throw problem;
        }
        if (PKCS11_enumerate_slots(m_context, &m_slots, &m_count) != 0)
            m_count = 0;
    }
    ~Module()
    {
        if (m_slots != nullptr)
            PKCS11_release_all_slots(m_context, m_slots, m_count);
        PKCS11_CTX_unload(m_context);
        PKCS11_CTX_free(m_context);
    }
    Module(const Module &) = delete;
    Module &operator=(const Module &) = delete;

    /// The first token that the URI means. Throws a Problem.
    PKCS11_SLOT &slot(const Pkcs11Uri &uri) const
    {
        for (unsigned int i = 0; i < m_count; ++i) {
            const PKCS11_TOKEN *const token = m_slots[i].token;
            if (token != nullptr && token->initialized != 0 && fits(uri.token, token->label)
                && fits(uri.serial, token->serialnr) && fits(uri.manufacturer, token->manufacturer))
                return m_slots[i];
        }
        throw tokenProblem("there is no such token; is the card in the reader?");
    }

private:
    static bool fits(const QByteArray &wanted, const char *found) { return wanted.isEmpty() || wanted == found; }

    PKCS11_CTX *m_context = nullptr;
    PKCS11_SLOT *m_slots = nullptr;
    unsigned int m_count = 0;
};

class Pkcs11Key : public SigningKey
{
public:
    Pkcs11Key(const Pkcs11Uri &uri, const AskPassword &ask)
        : m_module(uri.modulePath.isEmpty() ? QByteArray(kAllModules) : uri.modulePath)
    {
        PKCS11_SLOT &slot = m_module.slot(uri);
        logIn(slot, uri, ask);
        PKCS11_CERT *const found = certificateOn(*slot.token, uri);
        PKCS11_KEY *const key = PKCS11_find_key(found);
        if (key == nullptr)
            throw tokenProblem("there is no key for the certificate on the token");
        X509_up_ref(found->x509);
        m_certificate.reset(found->x509);
        m_key.reset(PKCS11_get_private_key(key));
        if (m_key == nullptr)
            throw tokenProblem("the token does not give its key");
    }

    EVP_PKEY *key() const override { return m_key.get(); }
    X509 *certificate() const override { return m_certificate.get(); }
    STACK_OF(X509) * chain() const override { return nullptr; }

private:
    static void logIn(PKCS11_SLOT &slot, const Pkcs11Uri &uri, const AskPassword &ask)
    {
        if (slot.token->loginRequired == 0)
            return;
        QByteArray pin;
        if (uri.pinSource.isEmpty()) {
            pin = ask(QString("the token \"%1\"").arg(slot.token->label));
        } else {
            const QString place = QString::fromUtf8(uri.pinSource);
            const Source file(place.startsWith("file:") ? QUrl(place).toLocalFile() : place);
            pin = file.read(0, std::min<qint64>(file.size(), 256)).trimmed();
        }
        const bool isIn = PKCS11_login(&slot, 0, pin.constData()) == 0;
        OPENSSL_cleanse(pin.data(), static_cast<size_t>(pin.size()));
        if (!isIn)
            throw tokenProblem("the token does not take the PIN; too many wrong ones lock it");
    }

    /// The certificate that the URI names; without an object or id in it, the only one with a key.
    static PKCS11_CERT *certificateOn(PKCS11_TOKEN &token, const Pkcs11Uri &uri)
    {
        PKCS11_CERT *all = nullptr;
        unsigned int count = 0;
        if (PKCS11_enumerate_certs(&token, &all, &count) != 0)
            count = 0;
        std::vector<PKCS11_CERT *> found;
        for (unsigned int i = 0; i < count; ++i) {
            const QByteArray id(reinterpret_cast<const char *>(all[i].id), static_cast<int>(all[i].id_len));
            const QByteArray label(all[i].label);
            if ((uri.id.isEmpty() || uri.id == id) && (uri.object.isEmpty() || uri.object == label)
                && PKCS11_find_key(&all[i]) != nullptr)
                found.push_back(&all[i]);
        }
        if (found.empty())
            throw tokenProblem("there is no such certificate with a key on the token");
        if (found.size() > 1)
            throw tokenProblem("there are several such certificates on the token; say which with object= or id=");
        return found.front();
    }

    Module m_module; ///< outlives the key
    KeyOwner m_key;
    CertificateOwner m_certificate;
};

} // namespace

std::unique_ptr<SigningKey> openPkcs11(const QString &uri, const AskPassword &ask)
{
    return std::make_unique<Pkcs11Key>(parsedUri(uri), ask);
}

} // namespace documents
