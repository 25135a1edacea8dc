/// @file
/// Files that come to be whole or not at all.
#ifndef SAFEFILE_H
#define SAFEFILE_H

#include <QIODevice>
#include <QString>

#include <functional>

namespace signdesk {

/// Lets `write` fill the file; what was there before stays when that fails or cannot be finished. Throws a Trouble.
void writeFile(const QString &path, const std::function<bool(QIODevice &)> &write);

/// Whether so much can be written for a while where temporary files are. Tried out, since a disk may have room that is
/// not for everybody.
bool hasRoomForTemporary(qint64 bytes);

} // namespace signdesk

#endif
