/// @file
/// The file of a page, read at once: what happens to it afterwards does not change what is signed.
#ifndef PAGEFILE_H
#define PAGEFILE_H

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace signdesk {

struct Trouble;

struct PageFile
{
    QString path;
    QByteArray content;
    QDateTime time; ///< of the last change before it was read
    qint64 size = 0; ///< also when the content is no longer held

    /// The path leads to another file by now, or the file was changed. One that is gone has not changed.
    bool hasChanged() const;
};

/// Does not wait for a pipe that nobody fills. Throws a Trouble.
PageFile readPageFile(const QString &path);

/// That this file is no page, with the reason.
Trouble unreadable(const QString &path, const QString &why);

} // namespace signdesk

#endif
