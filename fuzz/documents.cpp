#include "documents.h"

#include "target.h"

namespace fuzz {

void withDocument(const uint8_t *data, size_t size, const std::function<void(documents::Document &)> &work)
{
    try {
        documents::Document document(
            documents::Content{QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)), "input"});
        work(document);
    } catch (const documents::Problem &problem) {
        KV_PROMISE(!problem.message.isEmpty());
    }
}

} // namespace fuzz
