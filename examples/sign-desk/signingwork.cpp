#include "signingwork.h"

#include "documenttrouble.h"
#include "inkcheck.h"
#include "memoryfile.h"
#include "pagefile.h"
#include "pages.h"

#include <documents/problem.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace signdesk {

namespace {

struct SigningWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Document)
};

/// A document's bytes as a file, which the library wants.
class BytesAsFile
{
public:
    explicit BytesAsFile(const DocumentBytes &document)
    {
        if (!m_file.write(document.content))
            throw troubleOf({documents::Problem::Kind::File, QStringLiteral("x: needs more memory than there is")});
        m_document = std::make_unique<documents::Document>(m_file.path(), document.password);
    }

    documents::Document &operator*() { return *m_document; }

private:
    MemoryFile m_file;
    std::unique_ptr<documents::Document> m_document;
};

QRectF scaled(const QRectF &rectangle, double x, double y)
{
    return {rectangle.x() * x, rectangle.y() * y, rectangle.width() * x, rectangle.height() * y};
}

QString alternativeText(const documents::SigningRequest &request)
{
    const QString day = QLocale().toString(request.time.date(), QLocale::LongFormat);
    const QString name = request.key == nullptr ? QString() : request.key->owner();
    return name.isEmpty() ? SigningWords::tr("Signature, %1").arg(day)
                          : SigningWords::tr("Signature of %1, %2").arg(name, day);
}

documents::SigningRequest requestOf(const SignatureWish &wish, const documents::Document &document)
{
    documents::SigningRequest request;
    request.page = wish.page;
    request.formField = wish.formField;
    const QSizeF page = document.page(wish.page).size;
    request.place = scaled(wish.place, page.width() / wish.pageSize.width(), page.height() / wish.pageSize.height());
    request.ink = wish.ink;
    request.key = wish.signatory.key.get();
    if (request.key != nullptr) {
        request.reason = wish.signatory.reason;
        request.location = wish.signatory.location;
    }
    request.time = QDateTime::currentDateTime();
    request.alternativeText = alternativeText(request);
    return request;
}

Trouble notWhole()
{
    return {SigningWords::tr("The signed document did not come out whole."),
        SigningWords::tr("Nothing was written, and the signature is still here. Export the "
                         "signature, and sign another copy of the document.")};
}

/// Throws a Trouble when the outcome cannot be shown, or lacks something.
void needWhole(const DocumentBytes &before, const SignedBytes &after, const SignatureWish &wish)
{
    if (after.isAppended && !after.content.startsWith(before.content))
        throw notWhole();
    std::unique_ptr<Pages> pages;
    try {
        pages = pagesOf({{}, after.content, {}, 0}, before.password);
    } catch (const PasswordNeeded &) {
        throw notWhole();
    } catch (const Trouble &) {
        throw notWhole();
    }
    if (wish.page >= pages->count() || !hasInk(*pages, wish.page, wish.place, wish.ink))
        throw notWhole();
}

} // namespace

bool SignatureWish::operator==(const SignatureWish &other) const
{
    const auto isSameLine = [](const documents::InkLine &one, const documents::InkLine &two) {
        return one.from == two.from && one.to == two.to && qFuzzyCompare(1 + one.width, 1 + two.width);
    };
    return page == other.page && place == other.place && formField == other.formField
        && signatory.key == other.signatory.key && signatory.reason == other.signatory.reason
        && signatory.location == other.signatory.location && ink.colour == other.ink.colour
        && ink.canvas == other.ink.canvas && ink.picture == other.ink.picture
        && ink.picturePlace == other.ink.picturePlace
        && std::equal(ink.lines.begin(), ink.lines.end(), other.ink.lines.begin(), other.ink.lines.end(), isSameLine);
}

DocumentFacts factsOf(const DocumentBytes &document)
{
    DocumentFacts facts;
    withTroubles([&] {
        BytesAsFile file(document);
        facts.isSigned = (*file).isSigned();
        for (const documents::SignatureFieldFacts &field : (*file).signatureFields()) {
            if (field.isSigned || field.page < 0)
                continue;
            const QSizeF page = (*file).page(field.page).size;
            facts.emptyFields.push_back(
                {field.name, field.page, scaled(field.place, 1 / page.width(), 1 / page.height())});
        }
    });
    return facts;
}

void needAllowed(const DocumentBytes &document, const SignatureWish &wish)
{
    withTroubles([&] {
        BytesAsFile file(document);
        documents::checkRequest(*file, requestOf(wish, *file));
    });
}

documents::VerifyReport reportOf(const DocumentBytes &document, const documents::ShowProgress &progress)
{
    documents::VerifyReport report;
    withTroubles([&] {
        BytesAsFile file(document);
        report = documents::verify(*file, {}, progress);
    });
    return report;
}

SignedBytes addSignature(
    const DocumentBytes &document, const SignatureWish &wish, const documents::ShowProgress &progress)
{
    SignedBytes outcome;
    withTroubles([&] {
        BytesAsFile file(document);
        QBuffer output(&outcome.content);
        output.open(QIODevice::WriteOnly);
        const documents::SigningResult result = documents::sign(*file, requestOf(wish, *file), output, progress);
        outcome.isAppended = result.rewriteReason.isEmpty();
    });
    needWhole(document, outcome, wish);
    return outcome;
}

} // namespace signdesk
