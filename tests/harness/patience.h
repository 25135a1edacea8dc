/// @file
/// Times in tests. The machine may hold up any one moment: waits are long, and what must be prompt gets several tries.
#ifndef PATIENCE_H
#define PATIENCE_H

#include <chrono>

/// For what comes soon, and fails the test when it does not come at all.
constexpr std::chrono::seconds kPatience{60};

/// Whether one of ten tries takes less than the limit. Each returns how long the part in question took.
template <class Try>
bool takesLessThan(std::chrono::milliseconds limit, Try attempt)
{
    for (int i = 0; i < 10; ++i) {
        if (attempt() < limit)
            return true;
    }
    return false;
}

#endif
