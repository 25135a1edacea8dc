/// @file
/// The file of a page, read into memory when it is opened: what happens to it afterwards does not change what is
/// signed.
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
    qint64 size = 0; ///< kept even when the content is dropped
    QByteArray digest = {}; ///< of the content (SHA-256), also then

    /// True when the path now leads to another file or the file was changed; false when it is gone.
    bool hasChanged() const;
};

/// Does not wait for the writer of a pipe. Throws a Trouble.
PageFile readPageFile(const QString &path);

/// The Trouble that says why this file cannot be a page.
Trouble unreadable(const QString &path, const QString &why);

} // namespace signdesk

#endif
