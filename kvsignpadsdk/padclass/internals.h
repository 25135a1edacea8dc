/// @file
/// What every instance keeps beyond its named fields.
#ifndef PADINTERNALS_H
#define PADINTERNALS_H

#include "fastways/inkbrush.h"
#include "fastways/opaquepixels.h"
#include "repaintrequest.h"

#include <mutex>
#include <unistd.h>

/// The order of locks: m_mutexUpdateCanvas, then pixelsLock; inkLock and colourLock are taken last and alone.
struct PadInternals
{
    /// False in a forked child: the threads that hand over packets and show fingerprints did not come along.
    bool isOfThisProcess() const { return m_process == ::getpid(); }

    /// Held for every write to a canvas, for readers that may not take m_mutexUpdateCanvas.
    std::mutex pixelsLock;
    /// Guards m_pPointDataList and m_pDecodedPointDataList with the lists behind them.
    std::mutex inkLock;
    /// Guards m_drawColor.
    std::mutex colourLock;
    // Both guarded by m_mutexUpdateCanvas, as the canvas is.
    InkBrush brush;
    opaquepixels::Memo canvasOpacity;
    RepaintRequest repaint;

private:
    const pid_t m_process = ::getpid();
};

#endif
