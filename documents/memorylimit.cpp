#include "memorylimit.h"

#include <algorithm>
#include <sys/resource.h>

namespace documents {

namespace {

#if defined(KV_ADDRESS_SANITIZED) || defined(KV_THREAD_SANITIZED)
constexpr bool kCanLimit = false;
#else
constexpr bool kCanLimit = true;
#endif

} // namespace

void limitMemory(std::uint64_t bytes)
{
    rlimit limit = {};
    if (!kCanLimit || ::getrlimit(RLIMIT_DATA, &limit) != 0)
        return;
    limit.rlim_cur = std::min({static_cast<rlim_t>(bytes), limit.rlim_cur, limit.rlim_max});
    ::setrlimit(RLIMIT_DATA, &limit);
}

} // namespace documents
