/// @file
/// Bounds what a hostile document can take of the machine's memory.
#ifndef DOCUMENTS_MEMORYLIMIT_H
#define DOCUMENTS_MEMORYLIMIT_H

#include <cstdint>

namespace documents {

/// Lets this process, and those that it starts, allocate no more than so many bytes; a lower limit stays. Running out
/// of them is a Problem like any other. Any thread. Does nothing in a build with a sanitizer, which reserves far more
/// than it uses.
void limitMemory(std::uint64_t bytes);

} // namespace documents

#endif
