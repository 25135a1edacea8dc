/// @file
/// What every instance has besides its named fields.
#ifndef PADINTERNALS_H
#define PADINTERNALS_H

#include "fastways/inkbrush.h"
#include "fastways/opaquepixels.h"
#include "repaintrequest.h"

#include <mutex>
#include <unistd.h>

/// The order in which locks are taken is in docs/architecture.md.
struct PadInternals
{
    /// False in a forked child, which does not have the threads that deliver packets and show fingerprints.
    bool isOfThisProcess() const { return m_process == ::getpid(); }

    /// Held for every write to a canvas, so that readers who may not take m_mutexUpdateCanvas can take this one.
    std::mutex pixelsLock;
    /// Guards m_pPointDataList, m_pDecodedPointDataList and the lists they point to.
    std::mutex inkLock;
    /// Guards m_drawColor.
    std::mutex colourLock;
    // Like the canvas, these two are guarded by m_mutexUpdateCanvas.
    InkBrush brush;
    opaquepixels::Memo canvasOpacity;
    RepaintRequest repaint;

private:
    const pid_t m_process = ::getpid();
};

#endif
