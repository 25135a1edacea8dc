/// @file
/// Whether windows can be shown. Qt ends the process when they cannot, so it is looked at before.
#ifndef DISPLAY_H
#define DISPLAY_H

#include <QString>

struct DisplayState
{
    bool isThere;
    QString what; ///< the display, or what is wrong with it
};

DisplayState displayState();

/// Throws a Failure when there is none, or when Qt cannot use it, which ends a process. To be called before there is an
/// application object or a thread.
void needDisplay();

#endif
