/// @file
/// Reads and writes ink as kvsign does, for the targets of its four formats.
#ifndef FUZZ_READERS_H
#define FUZZ_READERS_H

#include "ink/inkformats.h"

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Reads the bytes in the format, up to a limited number of points. If they could be read to the end, writes them and
/// checks that they are read again as the same points.
void readAndWriteAgain(const char *formatName, const uint8_t *data, size_t size);

} // namespace fuzz

#endif
