/// @file
/// Files that kvsign must not leave behind when it ends early, and content that it must not leave changed. Their guard
/// removes them, or puts back what was there, when it is destroyed; so does the handler of a signal that ends the
/// process.
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
        Earlier, ///< gets back its name, `to`, which has been given to another file meanwhile
        Content ///< of a file that has been written over
    };

    /// Registers a name, best before the file is made: a missing file is no error. Throws a Failure when there are too
    /// many.
    /// @param path absolute, as the file system has it
    Leftover(Kind kind, const QByteArray &path, const QByteArray &to = {});

    /// Of Kind::Content. Both descriptors stay open as long as this object.
    /// @param earlier what the file held
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
