/// @file
/// Verifies the digital signatures of a document.
#ifndef DOCUMENTS_VERIFY_H
#define DOCUMENTS_VERIFY_H

#include "document.h"

#include <QDateTime>
#include <QStringList>

#include <functional>

namespace documents {

enum class Trust
{
    Trusted,
    SelfSigned, ///< signed by itself only, and not trusted by the user
    Unknown, ///< its issuer is not trusted
    Expired, ///< would be trusted, but no time stamp proves that it was valid when it was used
    NotForSigning,
    Revoked ///< its issuer, or one above, took it back before it was used
};

struct SignatureReport
{
    QString field;
    int page = -1; ///< from 0; -1 where it is on none
    QString signer; ///< as the certificate says
    QString statedName; ///< as the signature says, which anyone may write
    QString issuer;
    QString reason;
    QString location;
    QDateTime statedTime; ///< by the signer's own clock
    QDateTime stampedTime; ///< by a time-stamp authority; invalid without one
    QString authority; ///< of the time stamp
    bool isStampTrusted = false;
    QString stampProblem; ///< why a time stamp that is there counts for nothing

    bool isIntact = false; ///< the covered bytes have not changed since they were signed
    QString problem; ///< why it is not intact, or cannot be looked at
    bool coversWholeFile = false;
    qint64 coveredSize = 0; ///< the signature covers the file up to here
    int revision = 0; ///< which of the signed revisions, from 1
    QString algorithm; ///< "RSA 2048, SHA-256"
    bool isAlgorithmWeak = false;
    Trust trust = Trust::Unknown;
    QString trustReason; ///< why it is not trusted, in words
    bool isRevocationChecked = false; ///< lists or answers of all its issuers say whether it was taken back
    QDate validFrom;
    QDate validUntil;
    bool isExpired = false; ///< today

    QStringList added; ///< later changes that are allowed
    QStringList changed; ///< later changes that are not

    bool isValid() const { return isIntact && !isAlgorithmWeak && trust == Trust::Trusted && changed.isEmpty(); }
};

struct VerifyReport
{
    std::vector<SignatureReport> signatures; ///< in the order in which they were made
    qint64 size = 0;

    bool isValid() const;
};

/// Looks at every signature without asking anyone on a network.
/// @param trusted files with certificates (PEM) that are trusted besides the system's
/// @param progress is told how many of how many bytes were read; an exception from it ends the work
/// @param revoked files with lists of revoked certificates (CRL, PEM or DER); those in the document count too
VerifyReport verify(Document &document, const QStringList &trusted, const std::function<void(qint64, qint64)> &progress,
    const QStringList &revoked = {});

} // namespace documents

#endif
