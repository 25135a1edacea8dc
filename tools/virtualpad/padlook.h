/// @file
/// How each pad looks. Lengths are shares of the writing area's width.
#ifndef PADLOOK_H
#define PADLOOK_H

#include "modelrows.h"

#include <QColor>

namespace virtualpad {

struct PadLook
{
    int deviceType;
    double left, top, right, bottom; ///< the body around the writing area
    bool hasButtons; ///< beside the writing area; otherwise areas below it
    QColor body;
    QColor surfaceOff; ///< the writing area with the screen off, or without power
    QColor surfaceOn;
    QColor ink;
};

/// The look of the model. A model without one gets the S300's, or the R800's if it has no screen.
const PadLook &lookOf(const ModelRow &model);

} // namespace virtualpad

#endif
