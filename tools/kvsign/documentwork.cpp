#include "documentwork.h"

#include <documents/problem.h>

#include <algorithm>
#include <sys/resource.h>

namespace {

constexpr rlim_t kMostMemory = rlim_t{3} << 30; // bytes

// Sanitizers reserve far more than they use.
#if defined(KV_ADDRESS_SANITIZED) || defined(KV_THREAD_SANITIZED)
constexpr bool kCanLimit = false;
#else
constexpr bool kCanLimit = true;
#endif

void limitMemory()
{
    rlimit limit = {};
    if (!kCanLimit || getrlimit(RLIMIT_DATA, &limit) != 0)
        return;
    limit.rlim_cur = std::min({kMostMemory, limit.rlim_cur, limit.rlim_max});
    setrlimit(RLIMIT_DATA, &limit);
}

ExitCode exitCodeOf(documents::Problem::Kind kind)
{
    return kind == documents::Problem::Kind::Request ? kUsage : kFailed;
}

} // namespace

int withDocuments(const std::function<int()> &work)
{
    limitMemory();
    try {
        return work();
    } catch (const documents::Problem &problem) {
        throw Failure{exitCodeOf(problem.kind), problem.message};
    }
}
