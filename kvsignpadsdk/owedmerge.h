/// @file
/// A merge of ink and fingerprint that memory was lacking for. Until it is made up for, the shown canvas or the
/// fingerprint's own place lacks something that a person gave, so no picture may be handed out.
#ifndef OWEDMERGE_H
#define OWEDMERGE_H

#include "mutexlock.h"
#include "padmodels.h"

#include <mutex>

namespace owedmerge {

/// Whether a merge is owed. Needs no lock.
template <class Pad>
bool isOwed(const Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return pad.m_internals.mergeIsOwed;
    else
        return false;
}

/// Makes up for it. The caller holds the canvas lock.
/// @throws std::bad_alloc when memory is lacking still
template <class Pad>
void makeUpLocked(Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        if (!isOwed(pad))
            return;
        const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
        if (isOwed(pad))
            pad.MergeSignCanvasAndFPCanvas();
    } else {
        static_cast<void>(pad);
    }
}

/// The same for callers without a lock.
template <class Pad>
void makeUp(Pad &pad)
{
    if (!isOwed(pad))
        return;
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    makeUpLocked(pad);
}

} // namespace owedmerge

#endif
