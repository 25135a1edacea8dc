/// @file
/// Ink as a form XObject, which a page or a signature field shows.
#ifndef DOCUMENTS_APPEARANCE_H
#define DOCUMENTS_APPEARANCE_H

#include "ink.h"
#include "revision.h"

namespace documents {

/// A form whose box has the proportions of the place that it will fill.
struct Appearance
{
    QPDFObjectHandle form;
    QSizeF box; ///< in the form's own units; from 0, 0 to the right and upwards
};

/// @param place the size of the field, in any unit: the canvas fills it as far as its proportions allow, in the middle
/// @param rotation of the page, clockwise; 0 for ink that is placed by a matrix
/// @param sealed a file specification to be kept with the ink, or null
Appearance makeAppearance(
    Revision &revision, const Ink &ink, const QSizeF &place, int rotation, const QPDFObjectHandle &sealed);

} // namespace documents

#endif
