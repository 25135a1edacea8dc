/// @file
/// What the ten instance classes do differently with pen packets, typed in again here, independently of the library.
#ifndef PADDIFFERENCES_H
#define PADDIFFERENCES_H

#include "openpad.h"

#include <climits>
#include <stdexcept>
#include <string>

struct PadDifference
{
    const char *className;
    int (*hardestMove)(int maxPressure); ///< moves above this pressure are dropped
    bool confirmMarks; ///< a confirm tap keeps the next clear from the pad, as a cancel tap does
    const char *markText; ///< what the log says when a clear takes the mark back
};

inline int anyPressure(int)
{
    return INT_MAX;
}

inline int ownMaximum(int maxPressure)
{
    return maxPressure;
}

inline int always2048(int)
{
    return 2048;
}

inline constexpr const char *kButtonMark = "<%ld>-m_bPenDownOnCancelButton = false";
inline constexpr const char *kAreaMark = "<%ld>-m_bPenDownOnDeviceConfirmOrCancelArea = false, only clear UI canvas !";

inline const PadDifference kPadDifferences[] = {
    {"CS210SignWidget", ownMaximum, false, kButtonMark},
    {"CS210SignObj", ownMaximum, false, kButtonMark},
    {"CS300SignWidget", ownMaximum, false, kButtonMark},
    {"CS300SignObj", anyPressure, false, kButtonMark},
    {"CS310XSignWidget", always2048, false, kButtonMark},
    {"CS310XSignObj", anyPressure, false, kButtonMark},
    {"CR800SignWidget", ownMaximum, true, kAreaMark},
    {"CR800SignObj", anyPressure, false, kButtonMark},
    {"CM450SignWidget", ownMaximum, true, kAreaMark},
    {"CM450SignObj", anyPressure, false, kButtonMark},
};

inline const PadDifference &differenceOf(const PadCase &pad)
{
    for (const PadDifference &difference : kPadDifferences) {
        if (difference.className == std::string(pad.className()))
            return difference;
    }
    throw std::logic_error("a pad without a row");
}

#endif
