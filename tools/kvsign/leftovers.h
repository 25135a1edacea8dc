/// @file
/// Names that must not stay in the file system when kvsign ends before its time: they are taken away, or put back, when
/// their guard is destroyed, and also by a signal that ends the process.
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
        Earlier ///< gets back its name, `to`, which has been given to another file meanwhile
    };

    /// Register a name before it comes to be; what is not there is no trouble. Throws a Failure when there are too
    /// many.
    /// @param path absolute, as the file system has it
    Leftover(Kind kind, const QByteArray &path, const QByteArray &to = {});
    ~Leftover();
    Leftover(const Leftover &) = delete;
    Leftover &operator=(const Leftover &) = delete;

    const QByteArray &path() const { return m_path; }

    /// Takes it away or puts it back, now.
    void clean();

    /// It stays as it is from now on.
    void release();

    /// Cleans all that are registered. For signal handlers: it only makes system calls.
    static void cleanAll();

private:
    void cleanName() const;

    const Kind m_kind;
    const QByteArray m_path;
    const QByteArray m_to;
    // What a signal handler reads without touching shared data.
    const char *const m_name;
    const char *const m_target;
    int m_slot = -1; ///< -1: released
};

#endif
