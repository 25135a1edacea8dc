/// @file
/// Whether windows can be shown. Without a display Qt aborts the process, so this is checked before.
#ifndef DISPLAY_H
#define DISPLAY_H

#include <QString>

struct DisplayState
{
    bool isThere;
    QString what; ///< the display, or what is wrong with it
};

DisplayState displayState();

/// Throws a Failure when there is no display or Qt cannot use it. Call it before there is an application object or a
/// second thread, because it forks.
void needDisplay();

#endif
