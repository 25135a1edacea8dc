/// @file
/// A child forked while a pad is open inherits the instance, but none of the threads that work on it.
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

/// Recreates every lock of the instance and of its fingerprint places: a thread that held one at the fork does not
/// exist here and can never release it.
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
