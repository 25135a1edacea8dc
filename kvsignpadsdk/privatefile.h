/// @file
/// A file with a fixed name in a directory that other users share, such as /tmp.
#ifndef PRIVATEFILE_H
#define PRIVATEFILE_H

#include <QBuffer>
#include <QByteArray>
#include <QFile>

/// Collected in memory, so that a disk that is full cuts nothing off, then written under a name of its own, readable by
/// its owner alone, and put in place of the fixed name in one step: whatever others do meanwhile, publish() answers
/// what was written here. A symbolic link, a special file or another user's file that bears the fixed name is neither
/// followed nor replaced.
class PrivateFile
{
public:
    explicit PrivateFile(const char *path);
    ~PrivateFile();
    PrivateFile(const PrivateFile &) = delete;
    PrivateFile &operator=(const PrivateFile &) = delete;

    /// Open for writing, unless the file cannot be had.
    QIODevice &device() { return m_buffer; }

    /// Puts the file in its place and answers its bytes; empty when that could not be done.
    QByteArray publish();

private:
    QByteArray m_path;
    QByteArray m_ownPath; ///< empty once the file is in its place
    QFile m_file;
    QBuffer m_buffer;
};

#endif
