#include "pkcs11uri.h"

#include "problem.h"

#include <QStringList>

namespace documents {

namespace {

struct Attribute
{
    const char *name;
    QByteArray Pkcs11Uri::*value;
};

constexpr Attribute kAttributes[] = {{"token", &Pkcs11Uri::token}, {"serial", &Pkcs11Uri::serial},
    {"manufacturer", &Pkcs11Uri::manufacturer}, {"object", &Pkcs11Uri::object}, {"id", &Pkcs11Uri::id},
    {"module-path", &Pkcs11Uri::modulePath}, {"pin-source", &Pkcs11Uri::pinSource}};

/// Attributes that are accepted in a URI and ignored.
const QStringList kIgnored{"type", "model", "slot-id", "slot-description", "slot-manufacturer", "library-description",
    "library-manufacturer", "library-version"};

Problem unusable(const QString &message)
{
    return {Problem::Kind::Request, message};
}

} // namespace

Pkcs11Uri parsedUri(const QString &text)
{
    Pkcs11Uri uri;
    QString rest = text.mid(7); // after "pkcs11:"
    for (const QString &part : rest.replace('?', ';').replace('&', ';').split(';', Qt::SkipEmptyParts)) {
        const QString name = part.section('=', 0, 0);
        if (name == "pin-value")
            throw unusable("a PIN does not belong into the URI, where everyone sees it; put it into a file");
        if (name == "module-name")
            throw unusable("the URI names a module by its name; name its file with module-path=");
        bool isKnown = kIgnored.contains(name);
        for (const Attribute &attribute : kAttributes) {
            if (name == attribute.name) {
                uri.*attribute.value = QByteArray::fromPercentEncoding(part.section('=', 1).toUtf8());
                isKnown = true;
            }
        }
        if (!isKnown)
            throw unusable(QString("\"%1\" is no attribute of a pkcs11: URI").arg(name));
    }
    return uri;
}

} // namespace documents
