/// @file
/// The recordings and fingerprints that are built into the driver, so that it can be copied anywhere as one file.
#ifndef BUNDLED_H
#define BUNDLED_H

#include <string>
#include <string_view>

namespace kvsim {

struct BundledFile
{
    std::string_view name; ///< with its suffix: "signature.kvrec", "finger-clear.pgm"
    const unsigned char *bytes;
    std::size_t size;
};

/// The table is generated from the files in recordings/ when the driver is built.
extern const BundledFile kBundledFiles[];
extern const std::size_t kBundledFileCount;

const BundledFile *bundledFile(std::string_view name);

/// Names of the bundled recordings without suffix, for messages.
std::string bundledRecordingNames();

} // namespace kvsim

#endif
