/// @file
/// The internals that every instance has in addition to its named fields.
#ifndef PADINTERNALS_H
#define PADINTERNALS_H

#include "fastways/inkbrush.h"
#include "fastways/opaquepixels.h"
#include "repaintrequest.h"

#include <mutex>
#include <unistd.h>

/// docs/architecture.md says in which order the locks must be taken.
struct PadInternals
{
    /// False in a forked child: fork does not copy the threads that deliver packets and show fingerprints.
    bool isOfThisProcess() const { return m_process == ::getpid(); }

    /// Every write to a canvas holds this lock too, for readers that must not take m_mutexUpdateCanvas.
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
