#include "signing.h"

#include "appearance.h"
#include "byterange.h"
#include "conformance.h"
#include "documentinside.h"
#include "flatten.h"
#include "pagecontent.h"
#include "pageplace.h"
#include "permissions.h"
#include "problem.h"
#include "revision.h"
#include "sealedfile.h"
#include "seedvalues.h"
#include "signaturefield.h"
#include "signedmessage.h"

#include <openssl/rand.h>

#include <algorithm>
#include <optional>

namespace documents {

namespace {

constexpr int kMarkSize = 16;
constexpr qint64 kMostSize = 9'900'000'000; // what is added has room below ten digits
constexpr double kSmallest = 1; // millimetres
constexpr qint64 kWrittenAtOnce = 1 << 18;

Problem refused(const Document::Inside &inside, const QString &why)
{
    return {Problem::Kind::Refused, QString("%1: %2").arg(inside.source.name(), why)};
}

Problem unknown(const Document::Inside &inside, const QString &what)
{
    return {Problem::Kind::Request, QString("%1: %2").arg(inside.source.name(), what)};
}

std::string randomMark()
{
    std::string mark(kMarkSize, '\0');
    RAND_bytes(reinterpret_cast<unsigned char *>(mark.data()), kMarkSize);
    mark.back() = '\0'; // with a zero byte in it, qpdf writes the string in hexadecimal digits
    return mark;
}

/// One signing, from the checks to the bytes.
class Signing
{
public:
    Signing(Document &document, const SigningRequest &request)
        : m_document(document)
        , m_inside(document.inside())
        , m_request(request)
        , m_mark(randomMark())
    {
        m_result.originalSize = m_inside.source.size();
        m_result.rewriteReason = document.rewriteReason();
    }

    void check()
    {
        needAllowed();
        findPlace();
        needVisible();
        noteConformance();
    }

    SigningResult run(QIODevice &output, const ShowProgress &progress)
    {
        if (m_inside.isUsed)
            throw std::logic_error("a document is opened anew for each signing");
        m_inside.isUsed = true;
        check();
        Revision revision(*m_inside.reader);
        if (m_request.flatten)
            m_result.flattened = flattenFields(revision, m_inside.fields, m_inside.pages);
        change(revision);
        std::optional<Source> temporary;
        Assembly assembly = assembled(revision, temporary, progress);
        QByteArray digest;
        if (m_request.key != nullptr) {
            ByteRange range(assembly, m_mark, room());
            digest = range.digest();
            range.fill(
                signedMessage(*m_request.key, digest, m_request.timestampUrl, [&] { progress(0, assembly.size()); }));
        }
        m_inside.source.needUnchanged();
        write(assembly, output, progress);
        m_inside.source.needUnchanged();
        m_result.size = assembly.size();
        return m_result;
    }

private:
    int room() const { return roomFor(*m_request.key, m_request.timestampUrl); }
    TreePage &page() { return m_inside.pages[static_cast<size_t>(m_result.page)]; }

    void needAllowed()
    {
        if (m_inside.source.size() > kMostSize)
            throw refused(m_inside, "is too large: places in a PDF have ten digits");
        const bool isSigned = m_document.isSigned();
        if (isSigned && !m_result.rewriteReason.isEmpty())
            throw refused(m_inside,
                QString("is signed already, and %1: to add to it, it would have to be written anew, which breaks its "
                        "signatures")
                    .arg(m_result.rewriteReason));
        if (isSigned && m_request.flatten)
            throw refused(m_inside, "is signed already; its fields cannot be flattened without breaking that");
        const QString forbidden = forbiddenByOwner(m_inside.reader->pdf, changeOfRequest());
        if (!forbidden.isEmpty())
            throw refused(m_inside, forbidden);
        const Certification certification = certificationOf(m_inside.reader->pdf, m_inside.fields);
        if (certification == Certification::NoChanges)
            throw refused(m_inside, "is certified, and its certification forbids every change");
        if (certification != Certification::None && m_request.key == nullptr)
            throw refused(m_inside,
                "is certified, and its certification allows signatures but no ink on the page; sign with a "
                "certificate");
        if (isSigned && m_request.key == nullptr)
            m_result.notes += "the document is signed already: ink on its page is a change behind that signature; "
                              "with a certificate it would be a signature too";
    }

    /// Whoever signs must see it afterwards.
    void needVisible()
    {
        const Xfa xfa = xfaOf(m_inside.reader->pdf);
        if (xfa == Xfa::Instead)
            throw refused(m_inside,
                "is an XFA form, whose pages are made only when it is shown: nobody would see the ink; print it to a "
                "PDF and sign that");
        if (xfa == Xfa::Beside && !m_request.flatten)
            m_result.notes += "the form is also one of XFA: programs that show that instead of the pages may not show "
                              "the ink";
        for (size_t i = 0; i < m_inside.pages.size(); ++i) {
            const bool isDrawnOn = m_request.key == nullptr && static_cast<int>(i) == m_result.page;
            const bool isFlattened = m_request.flatten && m_inside.pages[i].page.hasKey("/Annots");
            if ((isDrawnOn || isFlattened) && endsBrokenOff(m_inside.pages[i]))
                throw refused(m_inside,
                    QString("the content of page %1 is broken, and what is drawn behind it would not be seen; sign "
                            "with a certificate, without flattening")
                        .arg(i + 1));
        }
    }

    void noteConformance()
    {
        const int part = m_request.sealed.isEmpty() ? 0 : archivePart(m_inside.reader->pdf);
        if (part == 1 || part == 2)
            m_result.notes +=
                QString("PDF/A-%1 allows no such attachment as sealed pen data: the document is none any more")
                    .arg(part);
    }

    OwnersRight changeOfRequest() const
    {
        if (m_request.key == nullptr || m_request.flatten)
            return OwnersRight::ChangePages;
        return m_request.formField.isEmpty() ? OwnersRight::AddFields : OwnersRight::FillFields;
    }

    void findPlace()
    {
        if (!m_request.formField.isEmpty()) {
            findField();
            return;
        }
        m_result.page = m_request.page;
        m_result.place = m_request.place;
        if (m_request.page < 0 || m_request.page >= m_document.pageCount())
            throw unknown(m_inside,
                QString("there is no page %1; it has %2").arg(m_request.page + 1).arg(m_document.pageCount()));
        const QSizeF size = m_document.page(m_request.page).size;
        if (std::min(m_request.place.width(), m_request.place.height()) < kSmallest)
            throw unknown(m_inside, QString("a field of less than %1 mm is too small for ink").arg(kSmallest));
        if (!QRectF(QPointF(-0.05, -0.05), size + QSizeF(0.1, 0.1)).contains(m_request.place))
            throw unknown(m_inside,
                QString("the field does not lie on page %1, which is %2 by %3 mm")
                    .arg(m_request.page + 1)
                    .arg(size.width(), 0, 'f', 1)
                    .arg(size.height(), 0, 'f', 1));
    }

    void findField()
    {
        QStringList names;
        for (const SignatureFieldFacts &facts : m_document.signatureFields()) {
            if (facts.name == m_request.formField) {
                use(facts);
                return;
            }
            if (!facts.isSigned)
                names += "\"" + facts.name + "\"";
        }
        throw unknown(m_inside,
            QString("there is no signature field \"%1\"; %2")
                .arg(m_request.formField,
                    names.isEmpty() ? QString("there is none that is empty") : "empty are " + names.join(", ")));
    }

    /// The field that the request names; null for a new one.
    const FormField *namedField() const
    {
        for (const FormField &field : m_inside.fields) {
            if (!m_request.formField.isEmpty() && field.name == m_request.formField.toStdString())
                return &field;
        }
        return nullptr;
    }

    void use(const SignatureFieldFacts &facts)
    {
        if (facts.isSigned)
            throw refused(m_inside, QString("the field \"%1\" is signed already").arg(facts.name));
        if (facts.page < 0)
            throw unknown(m_inside, QString("the field \"%1\" has no place on a page; name a place").arg(facts.name));
        if (m_request.key != nullptr && isLocked(m_inside.fields, facts.name.toStdString()))
            throw refused(m_inside, QString("an earlier signature forbids to sign the field \"%1\"").arg(facts.name));
        const QString asked = m_request.key == nullptr ? QString() : SeedValues(namedField()->field).refusal(m_request);
        if (!asked.isEmpty())
            throw refused(m_inside, QString("the field \"%1\" %2").arg(facts.name, asked));
        m_result.page = facts.page;
        m_result.place = facts.place;
        if (std::min(facts.place.width(), facts.place.height()) < kSmallest)
            throw unknown(m_inside, QString("the field \"%1\" is too small for ink").arg(facts.name));
    }

    void change(Revision &revision)
    {
        QPDFObjectHandle sealed = QPDFObjectHandle::newNull();
        if (!m_request.sealed.isEmpty())
            sealed = sealedFile(revision, m_request.sealed);
        const bool isField = m_request.key != nullptr;
        const int rotation = isField ? m_document.page(m_result.page).rotation : 0;
        const Appearance appearance = makeAppearance(revision, m_request.ink, m_result.place.size(), rotation, sealed);
        if (isField)
            signField(revision, appearance);
        else
            drawOnPage(revision, appearance);
    }

    std::string alternativeText() const { return m_request.alternativeText.toStdString(); }

    void drawOnPage(Revision &revision, const Appearance &appearance)
    {
        const QRectF &place = m_result.place;
        const double scale = place.width() / appearance.box.width();
        const QTransform toShown(scale, 0, 0, -scale, place.left(), place.bottom());
        PageContent content(revision, page());
        StructureTree structure(revision);
        std::string mark;
        if (structure.isTagged())
            mark = "/Figure << /MCID " + std::to_string(structure.addFigure(page().page, alternativeText())) + " >>";
        else
            mark = "/Span << /Alt " + QPDFObjectHandle::newUnicodeString(alternativeText()).unparse() + " >>";
        content.append(mark + " BDC\nq " + matrixOperator(toShown * PagePlace(page()).toPage())
            + content.nameFor(appearance.form) + " Do Q\nEMC\n");
    }

    void signField(Revision &revision, const Appearance &appearance)
    {
        const FormField *const existing = namedField();
        const QPDFObjectHandle none = QPDFObjectHandle::newDictionary();
        SignatureWords words{m_request.name, m_request.reason, m_request.location, m_request.time,
            SeedValues(existing == nullptr ? none : existing->field).subFilter()};
        if (words.name.isEmpty())
            words.name = m_request.key->owner();
        const QPDFObjectHandle dictionary = signatureDictionary(words, m_mark, room());
        SignatureField field(revision, page());
        m_result.field = m_request.formField;
        if (existing != nullptr) {
            field.fill(*existing, appearance.form, alternativeText(), dictionary);
            return;
        }
        m_result.field = freeFieldName(m_inside.fields);
        field.create(m_result.field, m_result.place, appearance.form, alternativeText(), dictionary);
    }

    Assembly assembled(Revision &revision, std::optional<Source> &temporary, const ShowProgress &progress)
    {
        if (m_inside.reader->rewrite == Rewrite::None)
            return {&m_inside.source, false, revision.appended(m_inside.source, m_inside.source.size())};
        temporary.emplace(Source::temporary("a temporary file"));
        revision.writeAnew(*temporary, [&](int hundredths) { progress(hundredths, 100); });
        return {&*temporary, true, ""};
    }

    static void write(const Assembly &assembly, QIODevice &output, const ShowProgress &progress)
    {
        const qint64 total = assembly.size();
        for (qint64 done = 0; done < total; done += kWrittenAtOnce) {
            progress(done, total);
            assembly.forEach(done, std::min(done + kWrittenAtOnce, total), [&](const char *bytes, qint64 count) {
                if (output.write(bytes, count) != count)
                    throw Problem{Problem::Kind::File, output.errorString()};
            });
        }
    }

    Document &m_document;
    Document::Inside &m_inside;
    const SigningRequest &m_request;
    const std::string m_mark;
    SigningResult m_result;
};

} // namespace

void checkRequest(Document &document, const SigningRequest &request)
{
    try {
        Signing(document, request).check();
    } catch (...) {
        rethrowAsProblem(document.inside().source.name());
    }
}

SigningResult sign(Document &document, const SigningRequest &request, QIODevice &output, const ShowProgress &progress)
{
    try {
        return Signing(document, request).run(output, progress);
    } catch (...) {
        rethrowAsProblem(document.inside().source.name());
    }
}

} // namespace documents
