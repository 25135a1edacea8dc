/// @file
/// What kv-make-recording can write: invented scribbles as plans of pen paths.
#ifndef STYLES_H
#define STYLES_H

#include "handwriting.h"

#include <string_view>

namespace kvsim {

struct Style
{
    std::string_view name;
    std::string_view title;
    std::vector<PenPath> (*plan)();
    Manner manner;
    double width; ///< share of the writing area's width that the result fills at most
    bool endsWithCancel;
    bool withFinger;
};

const Style *styleOfName(std::string_view name);
std::string_view styleNames(std::size_t index); ///< empty after the last

} // namespace kvsim

#endif
