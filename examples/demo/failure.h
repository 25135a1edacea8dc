/// @file
/// What ends the demo before its time.
#ifndef FAILURE_H
#define FAILURE_H

#include <QString>

/// Something went wrong: what, and what the user can do about it.
struct Failure
{
    QString what;
    QString cure;
};

/// The pad was unplugged before confirm. What it had sent is still there.
struct Unplugged : Failure
{
    int points;
};

/// The user closed the demo's window.
struct Closed
{
};

#endif
