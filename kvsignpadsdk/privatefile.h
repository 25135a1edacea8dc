/// @file
/// A file with a fixed name in a directory that other users share, such as /tmp.
#ifndef PRIVATEFILE_H
#define PRIVATEFILE_H

#include <QByteArray>
#include <QIODevice>

#include <cstddef>

/// Written under a random name, readable by its owner only, and then renamed to the fixed name. Whatever other users do
/// meanwhile, the fixed name has all of it or nothing. A symbolic link, special file or other user's file with the
/// fixed name is neither followed nor replaced.
class PrivateFile
{
public:
    explicit PrivateFile(const char *path);
    ~PrivateFile();
    PrivateFile(const PrivateFile &) = delete;
    PrivateFile &operator=(const PrivateFile &) = delete;

    /// Open for writing if the file could be created. Does not keep in memory what is written.
    QIODevice &device() { return m_device; }

    /// Number of bytes written, or 0 after any failure, such as a full disk.
    size_t size() const { return m_device.failed ? 0 : m_device.written; }

    /// Copies all size() bytes out. Returns false when they cannot be read. Call it before publish(): after that other
    /// programs of the user may change the file.
    bool read(char *to) const;

    /// Renames the file to the fixed name. Returns false, with nothing changed there, when that fails or the file is
    /// empty.
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
    QByteArray m_ownPath; ///< the random name; empty after publish()
    Device m_device;
};

#endif
