/// @file
/// A merge of ink and fingerprint that memory was lacking for, or the repaint after it. Until it is made up for, the
/// shown canvas or the fingerprint's own place lacks something that a person gave, so no picture may be handed out.
#ifndef OWEDMERGE_H
#define OWEDMERGE_H

#include "contained.h"
#include "mutexlock.h"
#include "padmodels.h"

#include <mutex>
#include <new>

namespace strokes {

template <class Pad>
void requestRepaint(Pad &pad);

}

namespace owedmerge {

/// Whether a merge is owed. Needs no lock.
template <class Pad>
bool isOwed([[maybe_unused]] const Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor)
        return pad.m_internals.mergeIsOwed;
    else
        return false;
}

/// A part of a merge, which is owed when this throws.
template <class Pad, class Part>
void orOwed([[maybe_unused]] Pad &pad, Part part)
{
    try {
        part();
    } catch (...) {
        if constexpr (Pad::row.model.hasFingerprintSensor)
            pad.m_internals.mergeIsOwed = true;
        throw;
    }
}

/// Call it after merging, and after emptying what would be merged. The caller holds pixelsLock.
template <class Pad>
void forget([[maybe_unused]] Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        if (isOwed(pad))
            pad.m_internals.mergeIsOwed = false;
    }
}

/// Makes up for it. The caller holds the canvas lock.
/// @throws std::bad_alloc when memory is lacking still
template <class Pad>
void makeUpLocked([[maybe_unused]] Pad &pad)
{
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        if (!isOwed(pad))
            return;
        {
            const std::lock_guard<std::mutex> writing(pad.m_internals.pixelsLock);
            if (!isOwed(pad)) // forgotten meanwhile
                return;
            pad.MergeSignCanvasAndFPCanvas();
        }
        // The picture is whole now. If only the repaint fails, the merge stays owed, and the display thread asks again.
        contained::run([&pad] { strokes::requestRepaint(pad); });
    }
}

/// The same for callers without a lock. In a forked child it throws: the display thread, which the child does not have,
/// may have held the lock.
template <class Pad>
void makeUp(Pad &pad)
{
    if (!isOwed(pad))
        return;
    if (!pad.m_internals.isOfThisProcess())
        throw std::bad_alloc();
    const MutexLock locked(pad.m_mutexUpdateCanvas);
    makeUpLocked(pad);
}

} // namespace owedmerge

#endif
