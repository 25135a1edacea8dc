#include "documentwork.h"

#include <documents/memorylimit.h>
#include <documents/problem.h>

#include <cstdint>

namespace {

constexpr std::uint64_t kMostMemory = std::uint64_t{3} << 30; // bytes

ExitCode exitCodeOf(documents::Problem::Kind kind)
{
    return kind == documents::Problem::Kind::Request ? kUsage : kFailed;
}

} // namespace

int withDocuments(const std::function<int()> &work)
{
    documents::limitMemory(kMostMemory);
    try {
        return work();
    } catch (const documents::Problem &problem) {
        throw Failure{exitCodeOf(problem.kind), problem.message};
    }
}
