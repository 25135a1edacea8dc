/// @file
/// Files that are written completely or not at all.
#ifndef SAFEFILE_H
#define SAFEFILE_H

#include <QByteArray>
#include <QString>

#include <functional>

namespace signdesk {

/// Called with the bytes done and all of them; what it throws ends the work.
using ShowBytes = std::function<void(qint64 done, qint64 total)>;

/// Writes the file and reads it again. When writing fails or ends, an earlier file keeps its content. Throws a Trouble.
void writeFile(
    const QString &path, const QByteArray &content, const ShowBytes &show = [](qint64, qint64) {});

/// Whether so many bytes can be written among the temporary files. It tries: a disk may have room that is reserved for
/// others.
bool hasRoomForTemporary(qint64 bytes);

} // namespace signdesk

#endif
