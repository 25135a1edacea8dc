/// @file
/// Names of objects on tokens, as RFC 7512 has them.
#ifndef DOCUMENTS_PKCS11URI_H
#define DOCUMENTS_PKCS11URI_H

#include <QByteArray>
#include <QString>

namespace documents {

/// Empty: any.
struct Pkcs11Uri
{
    QByteArray token; ///< the token's label
    QByteArray serial;
    QByteArray manufacturer;
    QByteArray object; ///< the label of the certificate and its key
    QByteArray id; ///< of the certificate and its key
    QByteArray modulePath;
    QByteArray pinSource; ///< a file
};

/// Throws a Problem for what cannot be understood, and for a PIN in the URI, which everyone could see.
Pkcs11Uri parsedUri(const QString &text);

} // namespace documents

#endif
