#include "verify.h"

#include "appendedbytes.h"
#include "coveredbytes.h"
#include "documentinside.h"
#include "laterchanges.h"
#include "messagecheck.h"
#include "pageplace.h"
#include "problem.h"
#include "streambytes.h"
#include "trust.h"

#include <algorithm>
#include <map>

namespace documents {

namespace {

constexpr size_t kMostSignatures = 500; // each has a revision of its own, which is read as a document

/// A field's signature with the bytes that it covers.
struct Found
{
    const FormField *field;
    QPDFObjectHandle signature;
    CoveredBytes bytes;
};

QString textIn(QPDFObjectHandle dictionary, const char *key)
{
    QPDFObjectHandle text = dictionary.getKey(key);
    return text.isString() ? QString::fromStdString(text.getUTF8Value()) : QString();
}

/// "D:20261121143000+01'00'" and all that may be left out of it.
QDateTime timeIn(QPDFObjectHandle dictionary)
{
    QString text = textIn(dictionary, "/M");
    if (text.startsWith("D:"))
        text = text.mid(2);
    const QString digits = text.left(14) + QString("00000101000000").mid(std::min(text.size(), 14));
    QDateTime time = QDateTime::fromString(digits, "yyyyMMddHHmmss");
    time.setTimeSpec(Qt::UTC);
    const QString zone = text.mid(14);
    if (zone.startsWith('+') || zone.startsWith('-')) {
        const int minutes = zone.mid(1, 2).toInt() * 60 + zone.mid(4, 2).toInt();
        time = time.addSecs(zone.startsWith('+') ? -60 * minutes : 60 * minutes);
    }
    return time;
}

std::vector<Found> signaturesIn(const Document::Inside &inside)
{
    std::vector<Found> all;
    for (const FormField &field : inside.fields) {
        const QPDFObjectHandle signature = field.signature();
        if (!QPDFObjectHandle(signature).isNull())
            all.push_back({&field, signature, coveredBytes(inside.source, signature)});
    }
    if (all.size() > kMostSignatures)
        throw Problem{Problem::Kind::File,
            QString("%1: has %2 signatures; more than %3 are not looked at")
                .arg(inside.source.name())
                .arg(all.size())
                .arg(kMostSignatures)};
    std::stable_sort(
        all.begin(), all.end(), [](const Found &one, const Found &other) { return one.bytes.end < other.bytes.end; });
    return all;
}

std::string nameIn(QPDFObjectHandle signature, const char *key)
{
    QPDFObjectHandle name = signature.getKey(key);
    return name.isName() ? name.getName() : std::string();
}

/// Whether a revision has the signature as it is now. Otherwise its own bytes do not cover what it says of itself.
bool hasSignature(Reader &revision, const FormField &field, QPDFObjectHandle signature)
{
    const std::vector<FormField> fields = fieldsOf(revision.pdf);
    return std::any_of(fields.begin(), fields.end(), [&](const FormField &own) {
        return own.name == field.name && own.signature().isDictionary()
            && own.signature().unparseResolved() == signature.unparseResolved();
    });
}

/// Lists of revoked certificates, and answers about single ones, that somebody put into the document's security store.
/// Their issuers signed them: whoever put them there cannot make anything of them. One that cannot be read says
/// nothing.
void addProofsIn(QPDF &pdf, RevocationLists &revoked)
{
    constexpr int kMostLists = 100;
    constexpr qint64 kMostBytes = 16 << 20;
    const std::pair<const char *, void (RevocationLists::*)(const QByteArray &)> kinds[] = {
        {"/CRLs", &RevocationLists::addDer}, {"/OCSPs", &RevocationLists::addAnswer}};
    QPDFObjectHandle store = pdf.getRoot().getKey("/DSS");
    for (const auto &kind : kinds) {
        QPDFObjectHandle list = store.isDictionary() ? store.getKey(kind.first) : store;
        for (int i = 0; list.isArray() && i < std::min(list.getArrayNItems(), kMostLists); ++i) {
            try {
                if (list.getArrayItem(i).isStream())
                    (revoked.*kind.second)(streamBytes(list.getArrayItem(i), kMostBytes));
            } catch (const std::exception &) {
            }
        }
    }
}

class Verifying
{
public:
    Verifying(Document &document, const QStringList &trusted, const std::function<void(qint64, qint64)> &progress,
        const QStringList &revoked)
        : m_inside(document.inside())
        , m_judges{trustedStore(trusted), {}}
        , m_progress(progress)
    {
        for (const QString &file : revoked)
            m_judges.revoked.addFile(file);
        addProofsIn(m_inside.reader->pdf, m_judges.revoked);
    }

    VerifyReport run()
    {
        VerifyReport report;
        report.size = m_inside.source.size();
        const std::vector<Found> all = signaturesIn(m_inside);
        for (const Found &found : all)
            m_total += found.bytes.end;
        for (const Found &found : all) {
            report.signatures.push_back(reportOf(found));
            report.signatures.back().revision = static_cast<int>(report.signatures.size());
        }
        m_inside.source.needUnchanged();
        return report;
    }

private:
    SignatureReport reportOf(const Found &found)
    {
        SignatureReport report;
        report.field = QString::fromStdString(found.field->name);
        if (!found.field->widgets.empty() && found.field->widgets.front().isIndirect())
            report.page = m_inside.pageOf(found.field->widgets.front());
        report.statedName = textIn(found.signature, "/Name");
        report.reason = textIn(found.signature, "/Reason");
        report.location = textIn(found.signature, "/Location");
        report.statedTime = timeIn(found.signature);
        report.coveredSize = found.bytes.end;
        report.coversWholeFile = found.bytes.end == m_inside.source.size();
        report.problem = found.bytes.problem;
        if (!report.problem.isEmpty())
            return report;
        std::map<int, QByteArray> digests; // a message may ask for one several times
        const auto digestOf = [&](const EVP_MD *kind) {
            QByteArray &digest = digests[EVP_MD_get_type(kind)];
            if (digest.isEmpty())
                digest = found.bytes.digest(m_inside.source, kind,
                    [&](qint64 count) { m_progress(m_done = std::min(m_done + count, m_total), m_total); });
            return digest;
        };
        checkMessage(report, found.bytes.message, nameIn(found.signature, "/SubFilter"), digestOf, m_judges);
        if (!report.coversWholeFile)
            lookBehind(report, found);
        return report;
    }

    /// Looks at what came after a signature. The signed revision is opened as a document for that.
    void lookBehind(SignatureReport &report, const Found &found)
    {
        try {
            const std::unique_ptr<Reader> before = openReader(m_inside.source, found.bytes.end, m_inside.password);
            if (report.isIntact && !hasSignature(*before, *found.field, found.signature)) {
                report.isIntact = false;
                report.problem = "it is not in the revision that it covers";
                return;
            }
            const LaterChanges later =
                changesAfter(m_inside.source, found.bytes.end, *before, *m_inside.reader, found.signature);
            report.added = later.added;
            report.changed = later.changed;
        } catch (const Problem &) {
            report.changed = QStringList("what it covers is no whole document");
        }
        if (report.added.isEmpty() && report.changed.isEmpty() && !hasOnlyBlanks(m_inside.source, found.bytes.end))
            report.added += "a revision in which nothing changed";
    }

    Document::Inside &m_inside;
    Judges m_judges;
    const std::function<void(qint64, qint64)> &m_progress;
    qint64 m_done = 0;
    qint64 m_total = 0;
};

} // namespace

bool VerifyReport::isValid() const
{
    return !signatures.empty()
        && std::all_of(signatures.begin(), signatures.end(), [](const SignatureReport &row) { return row.isValid(); });
}

VerifyReport verify(Document &document, const QStringList &trusted, const std::function<void(qint64, qint64)> &progress,
    const QStringList &revoked)
{
    try {
        return Verifying(document, trusted, progress, revoked).run();
    } catch (...) {
        rethrowAsProblem(document.inside().source.name());
    }
}

} // namespace documents
