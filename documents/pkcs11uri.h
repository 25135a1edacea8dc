/// @file
/// Names of objects on tokens, as RFC 7512 has them.
#ifndef DOCUMENTS_PKCS11URI_H
#define DOCUMENTS_PKCS11URI_H

#include <QByteArray>
#include <QString>

namespace documents {

/// The parts of a URI. An empty one matches anything.
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

/// Throws a Problem for a URI that cannot be understood or holds a PIN, which everyone could see there.
Pkcs11Uri parsedUri(const QString &text);

} // namespace documents

#endif
