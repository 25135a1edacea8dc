/// @file
/// Counts the memory of the whole process that is in use, by the sizes that were asked for. Include it in one source
/// file of a program.
#ifndef LIVEBYTES_H
#define LIVEBYTES_H

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

// glibc's own functions under other names, so that every allocation of the process passes here.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *memory);
}

namespace livebytes {

inline std::atomic<long> now{0};
inline std::atomic<long> most{0};

inline void add(long bytes)
{
    const long sum = now.fetch_add(bytes) + bytes;
    for (long known = most; sum > known && !most.compare_exchange_weak(known, sum);) { }
}

inline void *taken(void *memory)
{
    if (memory != nullptr)
        add(static_cast<long>(malloc_usable_size(memory)));
    return memory;
}

/// How many bytes more than before were in use at any moment of the work.
template <class Work>
long peakOf(Work &&work)
{
    const long before = now;
    most = before;
    work();
    return most - before;
}

} // namespace livebytes

extern "C" void *malloc(size_t size)
{
    return livebytes::taken(__libc_malloc(size));
}

extern "C" void *calloc(size_t count, size_t size)
{
    return livebytes::taken(__libc_calloc(count, size));
}

extern "C" void *memalign(size_t alignment, size_t size)
{
    return livebytes::taken(__libc_memalign(alignment, size));
}

extern "C" void *aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

extern "C" int posix_memalign(void **memory, size_t alignment, size_t size)
{
    *memory = memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

extern "C" void *realloc(void *memory, size_t size)
{
    const long before = memory == nullptr ? 0 : static_cast<long>(malloc_usable_size(memory));
    void *moved = __libc_realloc(memory, size);
    if (moved != nullptr)
        livebytes::add(static_cast<long>(malloc_usable_size(moved)) - before);
    return moved;
}

extern "C" void free(void *memory)
{
    if (memory != nullptr)
        livebytes::now -= static_cast<long>(malloc_usable_size(memory));
    __libc_free(memory);
}

#endif
