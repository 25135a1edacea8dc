/// @file
/// What the fingerprint classes have besides the internals of every instance.
#ifndef FINGERPRINTINTERNALS_H
#define FINGERPRINTINTERNALS_H

#include "fastways/mergecache.h"
#include "internals.h"

#include <memory>
#include <vector>

class CS310XFPWidget;
struct FingerprintCanvas;

struct FingerprintInternals : PadInternals
{
    FingerprintInternals();
    ~FingerprintInternals();

    /// All living fingerprint widgets of the instance, the newest last; guarded by pixelsLock.
    std::vector<CS310XFPWidget *> widgets;
    /// Guarded by m_mutexUpdateCanvas.
    MergeCache mergeCache;
    /// Used instead of a widget when the process cannot have one.
    std::unique_ptr<FingerprintCanvas> canvas;
};

#endif
