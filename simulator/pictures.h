/// @file
/// Stores what the pad's screen shows as PNG files.
#ifndef PICTURES_H
#define PICTURES_H

#include <string>
#include <vector>

namespace kvsim {

/// A PNG of RGB bytes, uncompressed: the simulator needs no zlib then, and a pad picture is small.
std::string pngOf(const std::vector<unsigned char> &rgb, int width, int height);

/// Red, green, blue bytes of a pad picture (5-6-5 bits, high byte first).
std::vector<unsigned char> rgbOfPadPicture(const unsigned char *image, int width, int height);

/// Writes directory/picture-0001.png and so on. False, with a line on stderr, when it cannot be written.
bool storePicture(const std::string &directory, int number, const unsigned char *image, int width, int height);

} // namespace kvsim

#endif
