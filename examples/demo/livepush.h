/// @file
/// Receives the S210's live pushes: the whole signature as a picture after every movement of the pen.
#ifndef LIVEPUSH_H
#define LIVEPUSH_H

#include "openedpad.h"

#include <QByteArray>

struct LivePushes
{
    int images = 0;
    double seconds = 0; ///< from the first image to the last
    QByteArray last; ///< Base64 text of a JPEG

    double perSecond() const { return seconds > 0 ? (images - 1) / seconds : 0; }
};

/// Starts receiving and forgets earlier pushes. Throws a Failure.
void startLivePush(const OpenedPad &pad);

LivePushes livePushes();

#endif
