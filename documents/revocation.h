/// @file
/// Certificates that their issuers took back: by their lists (CRL), and by answers about single ones (OCSP).
#ifndef DOCUMENTS_REVOCATION_H
#define DOCUMENTS_REVOCATION_H

#include "ocspanswers.h"

#include <QDateTime>
#include <QStringList>

namespace documents {

class RevocationLists
{
public:
    /// Throws a Problem for a file without a list (PEM or DER).
    void addFile(const QString &path);

    /// What is no list is passed over.
    void addDer(const QByteArray &bytes);

    /// An answer of OCSP in DER; what is none is passed over.
    void addAnswer(const QByteArray &bytes);

    struct Answer
    {
        bool isChecked = false; ///< a current list or answer of each issuer was there
        QString revoked; ///< who was taken back and when, in words; empty for nobody
    };

    /// @param chain a certificate, its issuer and so on; the last one is trusted by itself
    /// @param used when a trusted time stamp says that the certificate was used; invalid for now
    Answer look(STACK_OF(X509) * chain, const QDateTime &used) const;

private:
    void lookAtLists(X509 *certificate, const X509 *issuer, const QDateTime &used, Answer &answer) const;
    void lookAtAnswers(X509 *certificate, X509 *issuer, const QDateTime &used, Answer &answer) const;

    std::vector<CrlOwner> m_lists;
    std::vector<OcspOwner> m_answers;
};

} // namespace documents

#endif
