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

/// A model that has no look of its own looks like the S300, or without a screen like the R800.
const PadLook &lookOf(const ModelRow &model);

} // namespace virtualpad

#endif
