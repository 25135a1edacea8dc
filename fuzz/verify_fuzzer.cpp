// Verification of any PDF: nobody's signature is taken for one that is trusted here.
#include "documents.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::withDocument(data, size, [](documents::Document &document) {
        const documents::VerifyReport report = fuzz::verified(document);
        KV_PROMISE(!report.isValid());
        for (const documents::SignatureReport &row : report.signatures)
            KV_PROMISE(row.isIntact == row.problem.isEmpty());
    });
    return 0;
}
