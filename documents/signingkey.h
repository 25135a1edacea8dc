/// @file
/// A private key with its certificate, from a PKCS#12 file or from a token.
#ifndef DOCUMENTS_SIGNINGKEY_H
#define DOCUMENTS_SIGNINGKEY_H

#include "openssl_types.h"

#include <functional>

namespace documents {

/// Asks for the password of what is named. Called at most once.
using AskPassword = std::function<QByteArray(const QString &what)>;

class SigningKey
{
public:
    SigningKey() = default;
    virtual ~SigningKey() = default;
    SigningKey(const SigningKey &) = delete;
    SigningKey &operator=(const SigningKey &) = delete;

    virtual EVP_PKEY *key() const = 0;
    virtual X509 *certificate() const = 0;

    /// The certificates between the own one and its root; may be null.
    virtual STACK_OF(X509) * chain() const = 0;

    /// The owner's name.
    QString owner() const;
};

/// Opens `file.p12`, or a token by a URI as RFC 7512 has it ("pkcs11:token=...;object=..."), whose module is the path
/// attribute `module-path` or what the system's p11-kit knows. Throws a Problem.
std::unique_ptr<SigningKey> openSigningKey(const QString &place, const AskPassword &ask);

/// The two kinds of keys.
std::unique_ptr<SigningKey> openPkcs12(const QString &path, const AskPassword &ask);
std::unique_ptr<SigningKey> openPkcs11(const QString &uri, const AskPassword &ask);

/// Throws a Problem when documents must not be signed with it: wrong kind of key, expired, or not yet valid.
void needFit(const SigningKey &key);

} // namespace documents

#endif
