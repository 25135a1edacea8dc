/// @file
/// What the document library answers, in the desk's words and language.
#ifndef DOCUMENTTROUBLE_H
#define DOCUMENTTROUBLE_H

#include "trouble.h"

#include <functional>

namespace documents {
struct Problem;
}

namespace signdesk {

Trouble troubleOf(const documents::Problem &problem);

/// Whether it says that a certificate's password or PIN was wrong, so that it makes sense to ask again.
bool isWrongPassword(const documents::Problem &problem);

/// Does the work; what the library throws comes out as a Trouble.
void withTroubles(const std::function<void()> &work);

} // namespace signdesk

#endif
