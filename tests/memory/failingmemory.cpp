#include "failingmemory.h"

#include <atomic>
#include <cerrno>

// glibc's own functions under other names, so that every allocation of the process passes here.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
}

namespace {

thread_local long untilFailure = 0; ///< 0: none is to fail
thread_local bool isLasting = false; ///< all that follow fail too
thread_local bool hasFailed = false;
thread_local void (*atFailure)() = nullptr;

std::atomic<bool (*)(std::size_t)> refusal{nullptr};
std::atomic<int> refused{0};

bool isNth()
{
    if (untilFailure == 0)
        return false;
    if (untilFailure > 1) {
        --untilFailure;
        return false;
    }
    hasFailed = true;
    if (!isLasting)
        untilFailure = 0;
    return true;
}

bool isRefused(std::size_t bytes)
{
    const auto rule = refusal.load();
    if (rule == nullptr || !rule(bytes))
        return false;
    ++refused;
    return true;
}

bool fails(std::size_t bytes)
{
    if (isNth())
        atFailure(); // called from this function, because it skips a fixed number of stack frames
    else if (!isRefused(bytes))
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace

namespace failingmemory {

void refuse(bool (*rule)(std::size_t bytes))
{
    refusal = rule;
}

int refusals()
{
    return refused;
}

void failNth(long n, Which which, void (*noticed)())
{
    atFailure = noticed;
    isLasting = which == Which::AllFromIt;
    hasFailed = false;
    untilFailure = n;
}

bool stop()
{
    untilFailure = 0;
    return hasFailed;
}

} // namespace failingmemory

extern "C" {
void *malloc(size_t size)
{
    return fails(size) ? nullptr : __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    return fails(count * size) ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *memory, size_t size)
{
    return fails(size) ? nullptr : __libc_realloc(memory, size);
}

void *memalign(size_t alignment, size_t size)
{
    return fails(size) ? nullptr : __libc_memalign(alignment, size);
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
