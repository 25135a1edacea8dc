/// @file
/// Files, pipes and devices by their descriptors: waiting for the other end can be interrupted, and is explained.
#ifndef PLAINIO_H
#define PLAINIO_H

#include <QByteArray>
#include <QString>

namespace plainio {

/// A descriptor that is closed at the end.
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

/// Opens what is there for reading; a pipe with a name at once, also without a writer.
Descriptor openForReading(const QString &path);

/// Opens what is there for writing; a pipe with a name when somebody reads it.
Descriptor openForWriting(const QString &path);

/// The next bytes, when there are some; empty at the end. A pipe's end comes when a writer has been there and gone.
/// @param explanation is said on standard error after a second without any; empty: nothing is said
QByteArray read(int descriptor, const QString &name, const QString &explanation);

void writeAll(int descriptor, const char *bytes, qint64 count, const QString &name);

/// A file without a name in a directory: it is gone when its descriptor is closed.
Descriptor unnamedFile(const QString &directory);

} // namespace plainio

#endif
