/// @file
/// Whether Qt can show windows. Where it cannot, it aborts the process or crashes, so it is tried in another one
/// before.
#ifndef SCREEN_H
#define SCREEN_H

#include <QString>

namespace screen {

/// What a program says when why() says something.
inline constexpr char kMissing[] =
    "there is no screen for a window: see that QT_QPA_PLATFORM and DISPLAY are right, or not set";

/// Why Qt cannot show windows, as far as it says so; empty when it can. Call it before there is an application object
/// or a second thread, because it forks. The arguments are those for the application object, and stay as they are.
QString why(int argc, char **argv);

} // namespace screen

#endif
