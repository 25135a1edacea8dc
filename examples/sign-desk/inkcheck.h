/// @file
/// Whether ink is on a page: what was written is drawn again and compared with what a reader will see.
#ifndef INKCHECK_H
#define INKCHECK_H

#include <documents/ink.h>

namespace signdesk {

class Pages;

/// Whether the lines, and the fingerprint, are on the page at this place, in points. Draws the place alone.
bool hasInk(const Pages &pages, int page, const QRectF &place, const documents::Ink &ink);

} // namespace signdesk

#endif
