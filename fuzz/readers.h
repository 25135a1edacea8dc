/// @file
/// The way of an ink file through kvsign, for the targets of its four formats.
#ifndef FUZZ_READERS_H
#define FUZZ_READERS_H

#include "ink/inkformats.h"

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Reads the bytes in the format, up to a number of points that shows everything. What could be read to the end must
/// be written, and read again as the same points.
void readAndWriteAgain(const char *formatName, const uint8_t *data, size_t size);

} // namespace fuzz

#endif
