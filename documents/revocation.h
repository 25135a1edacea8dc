/// @file
/// Lists of certificates that their issuers took back (CRL).
#ifndef DOCUMENTS_REVOCATION_H
#define DOCUMENTS_REVOCATION_H

#include "openssl_types.h"

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

    struct Answer
    {
        bool isChecked = false; ///< a current list of each issuer was there
        QString revoked; ///< who was taken back and when, in words; empty for nobody
    };

    /// @param chain a certificate, its issuer and so on; the last one is trusted by itself
    /// @param used when a trusted time stamp says that the certificate was used; invalid for now
    Answer look(STACK_OF(X509) * chain, const QDateTime &used) const;

private:
    std::vector<CrlOwner> m_lists;
};

} // namespace documents

#endif
