/// @file
/// Files that kvsign must not leave behind when it ends early, and files whose content it must then put back. A
/// Leftover does that when it is destroyed, and a signal handler does it when a signal ends the process.
#ifndef LEFTOVERS_H
#define LEFTOVERS_H

#include <QByteArray>

class Leftover
{
public:
    enum class Kind
    {
        File, ///< is removed
        Folder, ///< is removed with the files in it
        Earlier, ///< gets its old name `to` back, which another file has meanwhile
        Content ///< gets its old content back after it was overwritten
    };

    /// Registers a name. Do so before the file is made: a missing file is not an error. Throws a Failure when too many
    /// are registered.
    /// @param path absolute, in the file system's encoding
    Leftover(Kind kind, const QByteArray &path, const QByteArray &to = {});

    /// Makes one of Kind::Content. Both descriptors must stay open as long as this object.
    /// @param earlier a file with the old content
    Leftover(int earlier, int file);
    ~Leftover();
    Leftover(const Leftover &) = delete;
    Leftover &operator=(const Leftover &) = delete;

    const QByteArray &path() const { return m_path; }

    /// Removes the file, or puts the earlier one back, now.
    void clean();

    /// Forgets the name: the file stays.
    void release();

    /// Cleans up everything that is registered. Safe in signal handlers: it makes system calls only.
    static void cleanAll();

private:
    void enter();
    void cleanName() const;

    const Kind m_kind;
    const QByteArray m_path;
    const QByteArray m_to;
    // Plain pointers for the signal handler, which must not touch Qt's shared data.
    const char *const m_name;
    const char *const m_target;
    const int m_earlier = -1;
    const int m_file = -1;
    int m_slot = -1; ///< -1: released
};

#endif
