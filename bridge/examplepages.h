/// @file
/// The example pages and the page's side of the bridge, which are inside the program.
#ifndef EXAMPLEPAGES_H
#define EXAMPLEPAGES_H

#include "frontdoor.h"

namespace bridge {

/// The page of a request's target: "/", "/delivery-note.html", "/kvsignpad/index.js". Empty bytes for anything else.
FrontDoor::Page examplePage(const QByteArray &target);

} // namespace bridge

#endif
