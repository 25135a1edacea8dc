/// @file
/// Times in tests. A busy machine may delay anything, so waits are long, and nothing is measured.
#ifndef PATIENCE_H
#define PATIENCE_H

#include <chrono>

/// For something that happens soon. The test fails when it never does.
constexpr std::chrono::seconds kPatience{60};

#endif
