#include "copiedbytes.h"

#include <cerrno>
#include <unistd.h>

namespace copiedbytes {

namespace {

bool writeAt(int file, const char *bytes, ssize_t count, off_t place)
{
    while (count > 0) {
        const ssize_t size = pwrite(file, bytes, static_cast<size_t>(count), place);
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return false;
        bytes += size;
        count -= size;
        place += size;
    }
    return true;
}

} // namespace

bool copy(int from, int to)
{
    char piece[1 << 14];
    off_t place = 0;
    for (;;) {
        const ssize_t size = pread(from, piece, sizeof piece, place);
        if (size < 0 && errno == EINTR)
            continue;
        if (size == 0)
            return ftruncate(to, place) == 0; // last, so that a full disk still has room to put the old content back
        if (size < 0 || !writeAt(to, piece, size, place))
            return false;
        place += size;
    }
}

} // namespace copiedbytes
