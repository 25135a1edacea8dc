/// @file
/// One command after the installation: the example pages in the browser.
#ifndef BRIDGE_DEMO_H
#define BRIDGE_DEMO_H

#include <QtGlobal>

namespace demo {

/// Says where the pages are, and opens them.
void show(quint16 port, bool opensBrowser);

} // namespace demo

#endif
