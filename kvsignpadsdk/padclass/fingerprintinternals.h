/// @file
/// The internals that only the fingerprint classes have.
#ifndef FINGERPRINTINTERNALS_H
#define FINGERPRINTINTERNALS_H

#include "fastways/mergecache.h"
#include "internals.h"
#include "sharedfields.h"

#include <atomic>
#include <memory>
#include <vector>

class CS310XFPWidget;
struct FingerprintCanvas;

struct FingerprintInternals : PadInternals
{
    FingerprintInternals();
    ~FingerprintInternals();

    /// The instance's fingerprint widgets that still exist, the newest last; guarded by pixelsLock.
    std::vector<CS310XFPWidget *> widgets;
    /// Guarded by m_mutexUpdateCanvas.
    MergeCache mergeCache;
    /// Takes the place of a widget in a process that cannot have widgets.
    std::unique_ptr<FingerprintCanvas> canvas;
    /// Memory was lacking for the last merge; see owedmerge.h. Written under
    /// the canvas lock or pixelsLock, and read in each pass of the
    /// display thread, hence in a cache line of its own.
    alignas(shared::kApart) std::atomic<bool> mergeIsOwed{false};
};

#endif
