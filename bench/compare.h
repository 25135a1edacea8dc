/// @file
/// Compares two ways to do the same work. They take turns in one run, so that both meet the same state of the machine;
/// it measures this thread's CPU time and the ratio of each pair.
#ifndef COMPARE_H
#define COMPARE_H

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <vector>

namespace compare {

inline double cpuNow()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <class Work>
double timed(Work &&work)
{
    const double before = cpuNow();
    work();
    return cpuNow() - before;
}

inline double quantile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(std::lround(share * static_cast<double>(values.size() - 1)))];
}

/// Each iteration runs both ways once, and they take turns at going first. Counters: "ratio" is the median of library /
/// plain, "q1" and "q3" are its quartiles, "library_us" and "plain_us" the median microseconds for a unit of work.
template <class Library, class Plain>
void run(benchmark::State &state, Library &&library, Plain &&plain, double unitsPerCall = 1)
{
    std::vector<double> libraryTimes;
    std::vector<double> plainTimes;
    std::vector<double> ratios;
    library();
    plain();
    bool libraryFirst = true;
    for ([[maybe_unused]] auto iteration : state) {
        const double first = libraryFirst ? timed(library) : timed(plain);
        const double second = libraryFirst ? timed(plain) : timed(library);
        libraryTimes.push_back(libraryFirst ? first : second);
        plainTimes.push_back(libraryFirst ? second : first);
        ratios.push_back(libraryTimes.back() / plainTimes.back());
        libraryFirst = !libraryFirst;
    }
    state.counters["ratio"] = quantile(ratios, 0.5);
    state.counters["q1"] = quantile(ratios, 0.25);
    state.counters["q3"] = quantile(ratios, 0.75);
    state.counters["library_us"] = quantile(libraryTimes, 0.5) * 1e6 / unitsPerCall;
    state.counters["plain_us"] = quantile(plainTimes, 0.5) * 1e6 / unitsPerCall;
}

} // namespace compare

#endif
