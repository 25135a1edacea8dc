/// @file
/// The one device instance of the process.
#ifndef OPENINSTANCE_H
#define OPENINSTANCE_H

#include "contained.h"
#include "padparts.h"

/// The open instance, a widget or a headless object of the family that created it; null while closed.
extern void *g_pSignWidget;

/// g_pSignWidget is, or is to be, a headless instance.
extern bool g_bUseSignObj;

namespace openinstance {

template <class Pad>
Pad &as()
{
    return *static_cast<Pad *>(g_pSignWidget);
}

/// For destructors: an instance that its host destroys while it is open still ends its work, and the library is
/// closed then. After Shutdown there is nothing left to do.
template <class Pad>
void destroyed(Pad &pad)
{
    if (pad.m_plibKVSignPadDriver != nullptr || padparts::hasDisplayThread(pad))
        contained::run([&pad] { pad.Shutdown(); });
    if (g_pSignWidget == &pad) {
        g_pSignWidget = nullptr;
        g_bUseSignObj = false; // a call without a parent may have marked a widget too
    }
}

} // namespace openinstance

#endif
