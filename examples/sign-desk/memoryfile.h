/// @file
/// A file that needs no room on a disk, for functions that write to a path.
#ifndef MEMORYFILE_H
#define MEMORYFILE_H

#include <QByteArray>
#include <QFile>
#include <QString>

namespace signdesk {

class MemoryFile
{
public:
    MemoryFile();

    /// Of this process alone and without a suffix. Empty when the system gives no such file.
    QString path() const;

    /// All that was written to the path; empty when it cannot be read.
    QByteArray content();

private:
    QFile m_file;
};

} // namespace signdesk

#endif
