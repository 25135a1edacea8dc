/// @file
/// Grey pictures in binary PGM files: the fingerprints of a recording.
#ifndef GREYIMAGE_H
#define GREYIMAGE_H

#include <iosfwd>
#include <string>
#include <vector>

namespace kvsim {

struct GreyImage
{
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels{}; ///< rows from top to bottom, 0 is black
};

/// Throws std::runtime_error "name: reason" for anything but an 8-bit binary PGM.
GreyImage readPgm(std::istream &in, const std::string &name);
void writePgm(std::ostream &out, const GreyImage &image);

} // namespace kvsim

#endif
