#include "revocation.h"

#include "problem.h"
#include "source.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <ctime>

namespace documents {

namespace {

constexpr qint64 kMostListFile = 64 << 20;

time_t secondsOf(const QDateTime &time)
{
    return time.isValid() ? static_cast<time_t>(time.toSecsSinceEpoch()) : std::time(nullptr);
}

bool isBefore(const ASN1_TIME *one, time_t other)
{
    --other; // X509_cmp_time says -1 for the same second too
    return one != nullptr && X509_cmp_time(one, &other) < 0;
}

/// A list for some kinds of certificates, or with the changes since another list, does not say who was not taken back.
bool isWhole(const X509_CRL *list)
{
    return X509_CRL_get_ext_by_NID(list, NID_issuing_distribution_point, -1) < 0
        && X509_CRL_get_ext_by_NID(list, NID_delta_crl, -1) < 0;
}

/// Made after the certificate was used, or the newest that there is.
bool isCurrent(const ASN1_TIME *made, const ASN1_TIME *next, const QDateTime &used)
{
    if (used.isValid() && made != nullptr && !isBefore(made, secondsOf(used)))
        return true;
    return next != nullptr && !isBefore(next, std::time(nullptr));
}

bool isOf(X509_CRL *list, const X509 *issuer)
{
    return X509_NAME_cmp(X509_CRL_get_issuer(list), X509_get_subject_name(issuer)) == 0
        && X509_CRL_verify(list, X509_get0_pubkey(issuer)) == 1;
}

/// Whose certificate was taken back and when; empty when that was only after it had been used.
QString revokedOn(const X509 *certificate, const ASN1_TIME *day, const QDateTime &used)
{
    if (used.isValid() && !isBefore(day, secondsOf(used)))
        return {};
    return QString("the certificate of %1 was revoked on %2")
        .arg(nameOf(X509_get_subject_name(certificate)), dayOf(day));
}

QString revokedBy(X509_CRL *list, X509 *certificate, const QDateTime &used)
{
    constexpr int kIsRevoked = 1; // 2 takes a certificate off the list again
    X509_REVOKED *entry = nullptr;
    if (X509_CRL_get0_by_cert(list, &entry, certificate) != kIsRevoked)
        return {};
    return revokedOn(certificate, X509_REVOKED_get0_revocationDate(entry), used);
}

} // namespace

void RevocationLists::addFile(const QString &path)
{
    const Source file(path);
    if (file.size() > kMostListFile)
        throw Problem{Problem::Kind::Key, QString("%1: is too large for a list of revoked certificates").arg(path)};
    const QByteArray bytes = file.read(0, file.size());
    const size_t before = m_lists.size();
    const BioOwner reader = bioOf(bytes);
    while (X509_CRL *const list = PEM_read_bio_X509_CRL(reader.get(), nullptr, nullptr, nullptr))
        m_lists.emplace_back(list);
    if (m_lists.size() == before)
        addDer(bytes);
    ERR_clear_error();
    if (m_lists.size() == before)
        throw Problem{
            Problem::Kind::Key, QString("%1: there is no list of revoked certificates (CRL) in it").arg(path)};
}

void RevocationLists::addDer(const QByteArray &bytes)
{
    CrlOwner list(d2i_X509_CRL_bio(bioOf(bytes).get(), nullptr));
    ERR_clear_error();
    if (list != nullptr)
        m_lists.push_back(std::move(list));
}

void RevocationLists::addAnswer(const QByteArray &bytes)
{
    OcspOwner answer = ocspAnswer(bytes);
    if (answer != nullptr)
        m_answers.push_back(std::move(answer));
}

void RevocationLists::lookAtLists(X509 *certificate, const X509 *issuer, const QDateTime &used, Answer &answer) const
{
    for (const CrlOwner &list : m_lists) {
        if (!isOf(list.get(), issuer))
            continue;
        answer.isChecked = answer.isChecked
            || (isWhole(list.get())
                && isCurrent(X509_CRL_get0_lastUpdate(list.get()), X509_CRL_get0_nextUpdate(list.get()), used));
        if (answer.revoked.isEmpty())
            answer.revoked = revokedBy(list.get(), certificate, used);
    }
}

void RevocationLists::lookAtAnswers(X509 *certificate, X509 *issuer, const QDateTime &used, Answer &answer) const
{
    for (const OcspOwner &own : m_answers) {
        const OcspStatus status = ocspStatus(own.get(), certificate, issuer);
        answer.isChecked = answer.isChecked || (status.isThere && isCurrent(status.made, status.next, used));
        if (status.isThere && status.isRevoked && answer.revoked.isEmpty())
            answer.revoked = revokedOn(certificate, status.revoked, used);
    }
}

RevocationLists::Answer RevocationLists::look(STACK_OF(X509) * chain, const QDateTime &used) const
{
    Answer all{sk_X509_num(chain) > 1, {}};
    for (int i = 0; i + 1 < sk_X509_num(chain); ++i) {
        Answer one;
        lookAtLists(sk_X509_value(chain, i), sk_X509_value(chain, i + 1), used, one);
        lookAtAnswers(sk_X509_value(chain, i), sk_X509_value(chain, i + 1), used, one);
        all.isChecked = all.isChecked && one.isChecked;
        if (all.revoked.isEmpty())
            all.revoked = one.revoked;
    }
    ERR_clear_error();
    return all;
}

} // namespace documents
