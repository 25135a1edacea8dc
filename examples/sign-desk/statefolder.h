/// @file
/// The desk's private folder for what has to outlast the program: kv-sign-desk in $XDG_STATE_HOME, or in
/// ~/.local/state. Its files are written whole or not at all, and nobody but their owner can read them.
#ifndef STATEFOLDER_H
#define STATEFOLDER_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace signdesk {

/// A file descriptor that closes itself.
class OpenedFile
{
public:
    explicit OpenedFile(int number = -1)
        : m_number(number)
    {
    }
    ~OpenedFile();
    OpenedFile(OpenedFile &&other) noexcept
        : m_number(other.m_number)
    {
        other.m_number = -1;
    }
    OpenedFile &operator=(OpenedFile &&other) noexcept;

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }

private:
    int m_number;
};

class StateFolder
{
public:
    /// Opens the folder, and makes it when it is missing. A folder of another user and a link are not opened; one of
    /// our own that others may read is closed to them.
    StateFolder();

    bool isOpen() const { return m_folder.isOpen(); }
    QString path() const { return m_path; }

    /// Replaces the file, and returns when it is on the disk. False when it is not: an earlier one stays then.
    bool write(const QByteArray &name, const QByteArray &content) const;

    /// Nothing when there is no such file, or it is not a regular one of our own.
    std::optional<QByteArray> read(const QByteArray &name) const;

    bool has(const QByteArray &name) const;
    void remove(const QByteArray &name) const;
    bool rename(const QByteArray &from, const QByteArray &to) const;

    /// Makes the file and locks it until the result is destroyed. Not open when somebody else has locked it.
    OpenedFile lock(const QByteArray &name) const;

private:
    OpenedFile open(const QByteArray &name, int flags) const;

    QString m_path;
    OpenedFile m_folder;
};

} // namespace signdesk

#endif
