/// @file
/// A child that the program forks while a pad is open has the instance, and none of the threads that work on it.
#ifndef FORKEDCHILD_H
#define FORKEDCHILD_H

#include "padmodels.h"

#include <new>

namespace forkedchild {

template <class Lock>
void renew(Lock &lock)
{
    new (&lock) Lock;
}

/// Makes every lock of the instance and of its fingerprint places anew: who held one at the fork is not here to give it
/// back.
template <class Pad>
void freeLocks(Pad &pad)
{
    renew(pad.m_mutexUpdateCanvas);
    if constexpr (Pad::row.model.hasFingerprintSensor) {
        renew(pad.m_mutexUpdateShowFPImageRawDataOnDevice);
        for (auto *widget : pad.m_internals.widgets)
            renew(widget->pixelsLock);
        if (pad.m_internals.canvas != nullptr)
            renew(pad.m_internals.canvas->pixelsLock);
    }
    renew(pad.m_internals.pixelsLock);
    renew(pad.m_internals.inkLock);
    renew(pad.m_internals.colourLock);
}

} // namespace forkedchild

#endif
