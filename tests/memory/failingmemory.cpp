#include "failingmemory.h"

#include <cerrno>
#include <cstddef>

// glibc's own functions under other names, so that every allocation of the process passes here.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
}

namespace {

thread_local long untilFailure = 0; ///< 0: none is to fail
thread_local void (*atFailure)() = nullptr;

bool fails()
{
    if (untilFailure == 0 || --untilFailure != 0)
        return false;
    atFailure();
    errno = ENOMEM;
    return true;
}

} // namespace

namespace failingmemory {

void failNth(long n, void (*noticed)())
{
    atFailure = noticed;
    untilFailure = n;
}

bool stop()
{
    const bool failed = untilFailure == 0;
    untilFailure = 0;
    return failed;
}

} // namespace failingmemory

extern "C" {
void *malloc(size_t size)
{
    return fails() ? nullptr : __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    return fails() ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *memory, size_t size)
{
    return fails() ? nullptr : __libc_realloc(memory, size);
}

void *memalign(size_t alignment, size_t size)
{
    return fails() ? nullptr : __libc_memalign(alignment, size);
}

void *aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void **memory, size_t alignment, size_t size)
{
    *memory = memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}
}
