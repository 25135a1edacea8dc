/// @file
/// A file that is read by its descriptor. It stays readable when it is removed, and changes to it are noticed.
#ifndef DOCUMENTS_SOURCE_H
#define DOCUMENTS_SOURCE_H

#include <QByteArray>
#include <QString>

#include <functional>
#include <sys/stat.h>

namespace documents {

class Source
{
public:
    /// Throws a Problem unless it is a regular file that can be read.
    explicit Source(const QString &path);

    /// A file without a name in the directory for temporary files; `name` is for messages.
    static Source temporary(const QString &name);

    /// A file in memory with these bytes; `name` is for messages.
    static Source ofBytes(const QString &name, const QByteArray &bytes);

    Source(Source &&other) noexcept;
    Source &operator=(Source &&other) = delete;
    ~Source();

    const QString &name() const { return m_name; }
    int descriptor() const { return m_descriptor; }
    qint64 size() const { return m_size; }

    /// Exactly these bytes. Throws a Problem when they are not there.
    QByteArray read(qint64 place, qint64 count) const;

    /// As many of these bytes as there are. Throws a Problem when the disk fails.
    qint64 readSome(qint64 place, char *bytes, qint64 count) const;

    /// Passes these bytes on, piece by piece.
    void forEach(qint64 begin, qint64 end, const std::function<void(const char *, qint64)> &take) const;

    /// Overwrites or appends; for temporary files only.
    void write(qint64 place, const char *bytes, qint64 count);

    /// Throws a Problem when the file has changed since it was opened.
    void needUnchanged() const;

private:
    Source(const QString &name, int descriptor);

    /// Size and time, which needUnchanged() compares. Throws a Problem when it is no regular file.
    void rememberState();

    QString m_name;
    int m_descriptor;
    qint64 m_size = 0;
    struct timespec m_modified = {};
};

} // namespace documents

#endif
