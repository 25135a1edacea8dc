/// @file
/// What the fingerprint classes keep beyond the internals of every instance.
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

    /// Every living fingerprint widget that the instance made, the newest last; guarded by pixelsLock.
    std::vector<CS310XFPWidget *> widgets;
    /// Guarded by m_mutexUpdateCanvas.
    MergeCache mergeCache;
    /// In place of a widget, where the process cannot have one.
    std::unique_ptr<FingerprintCanvas> canvas;
};

#endif
