/// @file
/// Files, pipes and devices by descriptor. Waiting for the other end of a pipe can be interrupted and is explained to
/// the user.
#ifndef PLAINIO_H
#define PLAINIO_H

#include <QByteArray>
#include <QString>

namespace plainio {

/// Owns a descriptor and closes it.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_number(other.take())
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept;
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor();

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

    /// Gives it away.
    int take();

private:
    int m_number = -1;
};

/// "name: No such file or directory", after a system call that failed.
[[noreturn]] void throwErrno(const QString &name);

/// Opens an existing file for reading; a named pipe at once, even without a writer.
Descriptor openForReading(const QString &path);

/// Opens an existing file for writing; waits until a named pipe has a reader.
Descriptor openForWriting(const QString &path);

/// Waits for the next bytes; empty at the end. A named pipe ends when its writer has closed it.
/// @param explanation printed on standard error after a second of waiting; empty: nothing is printed
QByteArray read(int descriptor, const QString &name, const QString &explanation);

void writeAll(int descriptor, const char *bytes, qint64 count, const QString &name);

/// The folder for temporary files: TMPDIR, or /tmp where that is not set. Throws a Failure when it is no folder.
QString temporaryFolder();

/// A file without a name in that folder. It vanishes when its descriptor is closed.
Descriptor unnamedFile();

} // namespace plainio

#endif
