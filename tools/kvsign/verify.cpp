// kvsign verify: says what the digital signatures of a PDF are worth.
#include "documentwork.h"
#include "interruption.h"
#include "passwords.h"
#include "progress.h"
#include "subcommands.h"
#include "terminal.h"

#include <documents/verify.h>

#include <QJsonArray>

#include <algorithm>

namespace {

using documents::SignatureReport;
using documents::Trust;
using documents::VerifyReport;

constexpr Option kTrustOption{"trust", "FILE",
    "Trust the certificates in this file (PEM) too, besides the system's. May come several times.", nullptr, nullptr};
constexpr Option kCrlOption{"crl", "FILE",
    "A list of revoked certificates (CRL, PEM or DER) of an issuer. May come several times.", nullptr, nullptr};
constexpr Option kVerifyOptions[] = {kTrustOption, kCrlOption, kDocumentPasswordOption, kJsonOption};
constexpr Positional kVerifyPositionals[] = {{"INPUT", "The PDF to verify.", 1, 1}};

struct TrustRow
{
    Trust trust;
    const char *word; ///< in JSON
    const char *words;
};

constexpr TrustRow kTrustRows[] = {{Trust::Trusted, "trusted", "trusted"},
    {Trust::SelfSigned, "self-signed", "NOT trusted: self-signed, and nobody else vouches for it"},
    {Trust::Unknown, "unknown", "NOT trusted: its issuer is not known here"},
    {Trust::Expired, "expired", "NOT valid now, and no trusted time stamp says that it was when it was used"},
    {Trust::NotForSigning, "not-for-signing", "NOT meant for signatures"}, {Trust::Revoked, "revoked", "NOT valid"}};

const TrustRow &rowOf(Trust trust)
{
    const TrustRow *found = kTrustRows;
    for (const TrustRow &row : kTrustRows) {
        if (row.trust == trust)
            found = &row;
    }
    return *found;
}

QString moment(const QDateTime &time)
{
    return time.isValid() ? time.toLocalTime().toString("yyyy-MM-dd HH:mm:ss") : QString("at no stated time");
}

QJsonValue isoOrNull(const QDateTime &time)
{
    return time.isValid() ? QJsonValue(time.toUTC().toString(Qt::ISODate)) : QJsonValue();
}

QJsonObject shown(const SignatureReport &report)
{
    return {{"field", report.field}, {"page", report.page < 0 ? QJsonValue() : QJsonValue(report.page + 1)},
        {"signer", report.signer}, {"statedName", report.statedName}, {"issuer", report.issuer},
        {"reason", report.reason}, {"location", report.location}, {"statedTime", isoOrNull(report.statedTime)},
        {"stampedTime", isoOrNull(report.stampedTime)}, {"authority", report.authority},
        {"stampTrusted", report.isStampTrusted}, {"stampProblem", report.stampProblem}, {"intact", report.isIntact},
        {"problem", report.problem}, {"coversWholeFile", report.coversWholeFile}, {"coveredBytes", report.coveredSize},
        {"revision", report.revision}, {"algorithm", report.algorithm}, {"weakAlgorithm", report.isAlgorithmWeak},
        {"trust", rowOf(report.trust).word}, {"trustReason", report.trustReason},
        {"revocationChecked", report.isRevocationChecked}, {"validFrom", report.validFrom.toString(Qt::ISODate)},
        {"validUntil", report.validUntil.toString(Qt::ISODate)}, {"expired", report.isExpired},
        {"addedAfter", QJsonArray::fromStringList(report.added)},
        {"changedAfter", QJsonArray::fromStringList(report.changed)}, {"valid", report.isValid()}};
}

void sayRow(const char *title, const QString &text)
{
    say(QString("  %1%2").arg(title, -15).arg(text));
}

void tellCertificate(const SignatureReport &report)
{
    const TrustRow &row = rowOf(report.trust);
    QString text = row.words;
    if (report.trust == Trust::Unknown && !report.trustReason.isEmpty())
        text = QString("NOT trusted: %1").arg(report.trustReason);
    if (report.trust == Trust::Revoked)
        text += ": " + report.trustReason;
    sayRow("certificate", text);
    if (report.validUntil.isValid())
        sayRow("",
            QString("issued by %1, valid from %2 to %3%4")
                .arg(report.issuer, report.validFrom.toString(Qt::ISODate), report.validUntil.toString(Qt::ISODate),
                    report.isExpired ? ": expired" : ""));
    if (report.trust == Trust::Trusted)
        sayRow("revocation",
            report.isRevocationChecked ? "not revoked, by the lists or answers of its issuers"
                                       : "not checked; a list of revoked certificates can be given with --crl");
    sayRow("algorithm", report.algorithm + (report.isAlgorithmWeak ? ": too WEAK" : ""));
}

void tellTimes(const SignatureReport &report)
{
    sayRow("signed", moment(report.statedTime) + (report.statedTime.isValid() ? " by the signer's own clock" : ""));
    if (report.stampedTime.isValid())
        sayRow("time stamp",
            QString("%1 by %2, which is %3")
                .arg(moment(report.stampedTime), report.authority, report.isStampTrusted ? "trusted" : "NOT trusted"));
    if (!report.stampProblem.isEmpty())
        sayRow("time stamp", "NOT usable: " + report.stampProblem);
    if (!report.reason.isEmpty())
        sayRow("reason", report.reason);
    if (!report.location.isEmpty())
        sayRow("location", report.location);
}

void tell(const SignatureReport &report, const VerifyReport &all)
{
    const QString page = report.page < 0 ? QString("on no page") : QString("on page %1").arg(report.page + 1);
    say(QString("Signature %1 of %2: field \"%3\" %4")
            .arg(report.revision)
            .arg(all.signatures.size())
            .arg(report.field, page));
    QString signer = report.signer.isEmpty() ? QString("cannot be told") : report.signer;
    if (!report.statedName.isEmpty() && report.statedName != report.signer)
        signer += QString(" (calls itself \"%1\")").arg(report.statedName);
    sayRow("signer", signer);
    tellTimes(report);
    sayRow("covers",
        report.coversWholeFile ? QString("the whole file")
                               : QString("an earlier revision: the first %1 of %2 bytes")
                                     .arg(grouped(report.coveredSize), grouped(all.size)));
    sayRow("intact", report.isIntact ? QString("yes, what it covers was not changed") : "NO: " + report.problem);
    if (!report.algorithm.isEmpty())
        tellCertificate(report);
    for (const QString &what : report.added)
        sayRow("added since", what);
    for (const QString &what : report.changed)
        sayRow("CHANGED since", what);
    sayRow("verdict", report.isValid() ? "valid" : "NOT valid");
}

QString verdict(const QString &name, const VerifyReport &report)
{
    if (report.signatures.empty())
        return QString("%1: there is no digital signature in it").arg(name);
    const auto count = std::count_if(
        report.signatures.begin(), report.signatures.end(), [](const SignatureReport &row) { return !row.isValid(); });
    return QString("%1: %2 of %3 signatures %4 not valid")
        .arg(name)
        .arg(count)
        .arg(report.signatures.size())
        .arg(count == 1 ? "is" : "are");
}

int verify(const Arguments &arguments)
{
    Progress progress;
    const QString name = arguments.positionals().at(0);
    documents::Document document(name, documentPassword(arguments));
    const VerifyReport report = documents::verify(
        document, arguments.values(kTrustOption),
        [&](qint64 done, qint64 total) {
            throwIfInterrupted();
            progress.show("verifying", done, total);
        },
        arguments.values(kCrlOption));
    progress.clear();
    QJsonArray signatures;
    for (const SignatureReport &row : report.signatures)
        signatures.append(shown(row));
    const QJsonObject details{{"file", name}, {"bytes", report.size}, {"signatures", signatures}};
    const bool asJson = arguments.isSet(kJsonOption);
    for (const SignatureReport &row : report.signatures) {
        if (!asJson)
            tell(row, report);
    }
    if (!report.isValid()) {
        flushOutput();
        throw Failure{kFailed, verdict(name, report), details};
    }
    QJsonObject answer = details;
    answer["result"] = "valid";
    if (asJson)
        sayJson(answer);
    else
        say(QString("%1: all signatures are valid").arg(name));
    return kDone;
}

int runVerify(const Arguments &arguments)
{
    return withDocuments([&] { return verify(arguments); });
}

} // namespace

const Subcommand kVerifySubcommand{"verify", "Say what the digital signatures of a PDF are worth.", kVerifyOptions,
    kVerifyPositionals, runVerify, nullptr};
