/// @file
/// What a checked request asks for, in the library's terms.
#ifndef REQUESTVALUES_H
#define REQUESTVALUES_H

#include "messagereader.h"
#include "padrunner.h"

#include <optional>

namespace bridge {

std::optional<int> numberOf(const Request &request, const char *name);
std::optional<bool> flagOf(const Request &request, const char *name);
std::optional<kv::Color> colorOf(const Request &request, const char *name);

Opening openingOf(const Request &request);
PictureWish pictureWishOf(const Request &request);

} // namespace bridge

#endif
