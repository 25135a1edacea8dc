/// @file
/// A file in memory with a path, for functions that can only write to a path.
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

    /// The path: valid in this process only, without a suffix. Empty when the system refuses such files.
    QString path() const;

    /// Replaces all. False when there is no memory for it.
    bool write(const QByteArray &content);

    /// All that was written to the path; empty when it cannot be read.
    QByteArray content();

private:
    QFile m_file;
};

} // namespace signdesk

#endif
