// Ink into any PDF: what comes out begins with what went in, and can be opened again with as many pages.
#include "documents.h"
#include "target.h"

#include <documents/signing.h>

#include <QBuffer>

namespace {

documents::SigningRequest requestFor(const documents::Document &document, bool flatten)
{
    documents::SigningRequest request;
    request.page = document.pageCount() - 1;
    request.place = QRectF(QPointF(0, 0), document.page(request.page).size);
    request.ink.canvas = {100, 50};
    request.ink.lines = {{{10, 10}, {90, 40}, 2.5}, {{90, 40}, {10, 40}, 0}};
    request.alternativeText = "Signature";
    request.flatten = flatten;
    return request;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QByteArray result;
    bool isAppended = false;
    int pages = 0;
    fuzz::withDocument(data, size, [&](documents::Document &document) {
        pages = document.pageCount();
        isAppended = document.rewriteReason().isEmpty();
        document.signatureFields();
        QBuffer output(&result);
        output.open(QIODevice::WriteOnly);
        try {
            documents::sign(document, requestFor(document, size % 2 == 1), output, [](qint64, qint64) {});
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
        [&](documents::Document &document) { pagesAgain = document.pageCount(); });
    KV_PROMISE(pagesAgain == pages);
    return 0;
}
