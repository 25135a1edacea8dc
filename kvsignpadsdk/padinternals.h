/// @file
/// What every instance keeps beyond its named fields.
#ifndef PADINTERNALS_H
#define PADINTERNALS_H

#include "repaintrequest.h"

#include <mutex>

/// The order of locks: m_mutexUpdateCanvas, then pixelsLock; inkLock and colourLock are taken last and alone.
struct PadInternals
{
    /// Held for every write to a canvas, for readers that may not take m_mutexUpdateCanvas.
    std::mutex pixelsLock;
    /// Guards m_pPointDataList and the list behind it.
    std::mutex inkLock;
    /// Guards m_drawColor.
    std::mutex colourLock;
    RepaintRequest repaint;
};

#endif
