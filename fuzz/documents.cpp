#include "documents.h"

#include "target.h"

#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

void withDocument(const uint8_t *data, size_t size, const std::function<void(documents::Document &)> &work)
{
    const int file = memfd_create("document", MFD_CLOEXEC);
    if (file < 0 || write(file, data, size) != static_cast<ssize_t>(size))
        std::abort();
    try {
        documents::Document document(QString("/proc/self/fd/%1").arg(file));
        work(document);
    } catch (const documents::Problem &problem) {
        KV_PROMISE(!problem.message.isEmpty());
    }
    close(file);
}

} // namespace fuzz
