// Ink into any PDF, with a signature or without: what comes out begins with what went in, can be opened again with as
// many pages, and its signature is intact. How it is signed depends on the input's size.
#include "documents.h"
#include "target.h"

#include <documents/signing.h>

#include <QBuffer>

#include <algorithm>

namespace {

documents::SigningRequest requestFor(const documents::Document &document, size_t size)
{
    documents::SigningRequest request;
    request.page = document.pageCount() - 1;
    request.place = QRectF(QPointF(0, 0), document.page(request.page).size);
    request.ink.canvas = {100, 50};
    request.ink.lines = {{{10, 10}, {90, 40}, 2.5}, {{90, 40}, {10, 40}, 0}};
    request.alternativeText = "Signature";
    request.time = QDateTime::fromSecsSinceEpoch(1700000000);
    request.flatten = size % 2 == 1;
    if (size % 4 >= 2)
        request.key = &fuzz::signingKey();
    for (const documents::SignatureFieldFacts &field : document.signatureFields()) {
        if (size % 8 >= 4 && !field.isSigned)
            request.formField = field.name;
    }
    return request;
}

/// The own signature is there, beside what the input says are others.
void needIntact(documents::Document &document, const QString &field)
{
    const std::vector<documents::SignatureReport> rows = fuzz::verified(document).signatures;
    KV_PROMISE(std::any_of(rows.begin(), rows.end(), [&](const documents::SignatureReport &row) {
        return row.field == field && row.isIntact && row.coversWholeFile && row.signer == "Fuzzer";
    }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray result;
    QString field;
    bool isAppended = false;
    int pages = 0;
    fuzz::withDocument(data, size, [&](documents::Document &document) {
        pages = document.pageCount();
        isAppended = document.rewriteReason().isEmpty();
        QBuffer output(&result);
        output.open(QIODevice::WriteOnly);
        try {
            field = documents::sign(document, requestFor(document, size), output, [](qint64, qint64) {}).field;
        } catch (...) {
            result.clear();
            throw;
        }
    });
    if (result.isEmpty() || !isAppended)
        return 0;
    KV_PROMISE(result.startsWith(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size))));
    int pagesAgain = -1;
    fuzz::withDocument(reinterpret_cast<const uint8_t *>(result.constData()), static_cast<size_t>(result.size()),
        [&](documents::Document &document) {
            pagesAgain = document.pageCount();
            if (!field.isEmpty())
                needIntact(document, field);
        });
    KV_PROMISE(pagesAgain == pages);
    return 0;
}
