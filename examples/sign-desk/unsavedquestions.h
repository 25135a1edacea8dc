/// @file
/// What the clerk is asked about a signature that an earlier desk left.
#ifndef UNSAVEDQUESTIONS_H
#define UNSAVEDQUESTIONS_H

#include "unsavedsignature.h"

class QWidget;

namespace signdesk {

enum class LeftAnswer
{
    GoOn,
    Later,
    Discard
};

/// Whether to go on with it.
LeftAnswer askAboutLeft(QWidget *parent, const UnsavedSignature &left);

/// The same when its document is another one than was signed, or gone: going on means to choose the right one.
LeftAnswer askAboutLost(QWidget *parent, const UnsavedSignature &left, const QString &path);

} // namespace signdesk

#endif
