/// @file
/// The values that kv::Pad takes and gives. Part of signpad.hpp.
#ifndef KVSIGNPADSDK_SIGNPADTYPES_HPP
#define KVSIGNPADSDK_SIGNPADTYPES_HPP

#include "kvsignpadsdk_global.h"

#include <vector>

namespace kv {

/// Pixels.
struct Size
{
    int width;
    int height;
};

/// Pixels; left and top from the canvas's corner.
struct Rect
{
    int left;
    int top;
    int width;
    int height;
};

struct Color
{
    int red;
    int green;
    int blue;
};

enum class ImageKind
{
    Bmp = EBITI_BITMAP,
    Jpeg = EBITI_JPEG,
    Png = EBITI_PNG
};

/// A stored ink point, in the pad's raw units; pointTime in seconds since the epoch, ulTickCount in milliseconds of a
/// clock that nobody sets.
using Point = ::POINTDATA;

/// A whole file of a picture.
using Bytes = std::vector<unsigned char>;

} // namespace kv

#endif
