/// @file
/// What the ten instance classes do differently with pen packets, typed in a second time.
#ifndef PADDIFFERENCES_H
#define PADDIFFERENCES_H

#include "openpad.h"

#include <climits>
#include <stdexcept>
#include <string>

struct PadDifference
{
    const char *className;
    int hardestMove; ///< moves above this pressure are dropped
    bool confirmMarks; ///< a confirm tap keeps the next clear from the pad, as a cancel tap does
    const char *markText; ///< what the log says when a clear takes the mark back
};

inline constexpr int kNoLimit = INT_MAX;
inline constexpr const char *kButtonMark = "<%ld>-m_bPenDownOnCancelButton = false";
inline constexpr const char *kAreaMark = "<%ld>-m_bPenDownOnDeviceConfirmOrCancelArea = false, only clear UI canvas !";

inline const PadDifference kPadDifferences[] = {
    {"CS210SignWidget", 2048, false, kButtonMark},
    {"CS210SignObj", 2048, false, kButtonMark},
    {"CS300SignWidget", 2048, false, kButtonMark},
    {"CS300SignObj", kNoLimit, false, kButtonMark},
    {"CS310XSignWidget", 2048, false, kButtonMark},
    {"CS310XSignObj", kNoLimit, false, kButtonMark},
    {"CR800SignWidget", 8192, true, kAreaMark},
    {"CR800SignObj", kNoLimit, false, kButtonMark},
    {"CM450SignWidget", 8192, true, kAreaMark},
    {"CM450SignObj", kNoLimit, false, kButtonMark},
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
