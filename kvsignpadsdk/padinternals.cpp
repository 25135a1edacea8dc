#include "padinternals.h"

#include <new>

void PadInternals::freeLocks()
{
    for (std::mutex *lock : {&pixelsLock, &inkLock, &colourLock})
        new (lock) std::mutex;
}
