/// @file
/// Time stamps of RFC 3161.
#ifndef DOCUMENTS_TIMESTAMPS_H
#define DOCUMENTS_TIMESTAMPS_H

#include "openssl_types.h"

#include <QDateTime>

#include <functional>

namespace documents {

/// Asks a server (http or https) for a time stamp over these bytes. Waits at most a minute. Throws a Problem.
/// @param whileWaiting is called about once a second; what it throws ends the wait
/// @return the token, a signed message in DER
QByteArray fetchTimestamp(const QString &url, const QByteArray &bytes, const std::function<void()> &whileWaiting);

struct TimestampReport
{
    QDateTime time;
    QString authority;
    bool isIntact = false; ///< it is a time stamp of these bytes, and its signature is valid
    bool isWeak = false; ///< its digest of the bytes is too weak to prove anything
    bool isTrusted = false; ///< and not weak
};

/// @param digestOfBytes computes the digest of the stamped bytes with a given algorithm
TimestampReport checkTimestamp(
    const QByteArray &token, const std::function<QByteArray(const EVP_MD *)> &digestOfBytes, X509_STORE *trusted);

} // namespace documents

#endif
