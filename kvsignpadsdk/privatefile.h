/// @file
/// A file with a fixed name in a directory that other users share, such as /tmp.
#ifndef PRIVATEFILE_H
#define PRIVATEFILE_H

#include <QByteArray>
#include <QIODevice>

#include <cstddef>

/// Written under a name of its own, readable by its owner alone, and put in place of the fixed name in one step:
/// whatever others do meanwhile, what was written here stands there whole or not at all. A symbolic link, a special
/// file or another user's file that bears the fixed name is neither followed nor replaced.
class PrivateFile
{
public:
    explicit PrivateFile(const char *path);
    ~PrivateFile();
    PrivateFile(const PrivateFile &) = delete;
    PrivateFile &operator=(const PrivateFile &) = delete;

    /// Open for writing, unless the file cannot be had. What is written is not kept in memory.
    QIODevice &device() { return m_device; }

    /// How many bytes were written; 0 when one of them could not be, as on a disk that is full.
    size_t size() const { return m_device.failed ? 0 : m_device.written; }

    /// Copies all size() bytes; false when they cannot be read. To be called before the file is in its place, where
    /// other programs of the same user may change it.
    bool read(char *to) const;

    /// Puts the file in its place; false, and nothing changed there, when that cannot be done or nothing was written.
    bool publish();

private:
    class Device : public QIODevice
    {
    public:
        int descriptor = -1;
        size_t written = 0;
        bool failed = false;

    protected:
        qint64 readData(char *, qint64) override { return -1; }
        qint64 writeData(const char *bytes, qint64 size) override;
    };

    QByteArray m_path;
    QByteArray m_ownPath; ///< empty once the file is in its place
    Device m_device;
};

#endif
