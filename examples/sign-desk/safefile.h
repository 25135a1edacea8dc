/// @file
/// Files that are written completely or not at all.
#ifndef SAFEFILE_H
#define SAFEFILE_H

#include <QIODevice>
#include <QString>

#include <functional>

namespace signdesk {

/// Lets `write` fill the file. When that fails, an earlier file keeps its content. Throws a Trouble.
void writeFile(const QString &path, const std::function<bool(QIODevice &)> &write);

/// Whether so many bytes can be written among the temporary files. It tries: a disk may have room that is reserved for
/// others.
bool hasRoomForTemporary(qint64 bytes);

} // namespace signdesk

#endif
