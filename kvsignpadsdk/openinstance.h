/// @file
/// The one device instance of the process.
#ifndef OPENINSTANCE_H
#define OPENINSTANCE_H

#include "contained.h"
#include "padparts.h"

/// The open instance, a widget or a headless object of the family that created it; null while closed.
extern void *g_pSignWidget;

/// Whether g_pSignWidget is headless, or will be once it is opened.
extern bool g_bUseSignObj;

namespace openinstance {

template <class Pad>
Pad &as()
{
    return *static_cast<Pad *>(g_pSignWidget);
}

/// For destructors: if the caller's window destroys an open instance, ends its work and marks the library as closed.
/// Does nothing after Shutdown().
template <class Pad>
void destroyed(Pad &pad)
{
    if (pad.m_plibKVSignPadDriver != nullptr || padparts::hasDisplayThread(pad))
        contained::run([&pad] { pad.Shutdown(); });
    if (g_pSignWidget == &pad) {
        g_pSignWidget = nullptr;
        g_bUseSignObj = false; // InitialDevice() without a parent sets it even while a widget is open
    }
}

} // namespace openinstance

#endif
