/// @file
/// The internals that only the classes with a live push have.
#ifndef LIVEINTERNALS_H
#define LIVEINTERNALS_H

#include "fastways/pngstream.h"
#include "internals.h"

struct LiveInternals : PadInternals
{
    /// Encodes the pushed PNG images; guarded by m_mutexUpdateCanvas.
    PngStream livePng{PngStream::Memory::BetweenImages};
};

#endif
