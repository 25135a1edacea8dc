/// @file
/// Times in tests. A busy machine may delay anything, so waits are long, and what must be prompt gets several tries.
#ifndef PATIENCE_H
#define PATIENCE_H

#include <chrono>

/// For something that happens soon. The test fails when it never does.
constexpr std::chrono::seconds kPatience{60};

/// Whether one of ten tries takes less than the limit. Each try returns the time of the part in question.
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
