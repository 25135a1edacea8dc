/// @file
/// A file that replaces an existing one only when it is complete, so that a failure leaves the existing one as it was.
#ifndef REPLACEDFILE_H
#define REPLACEDFILE_H

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <sys/stat.h>
#include <vector>

/// Check isOpen() before writing. The data go into a new file in the same folder, and commit() renames it; without
/// commit() nothing changes. The new file gets the permissions and the group of the existing one, or those of any new
/// file if there was none.
///
/// An existing file that a new one could not stand in for is overwritten in place instead, all at once in commit(): a
/// link, anything but a regular file, another user's file, one with several names, one with access rights beyond its
/// mode, or one in a folder that accepts no new files. A file without write permission is not opened at all.
///
/// A cancelled thread gives the file up while it collects the data and while a pipe waits for its reader. From the
/// first byte that commit() writes to the last, a cancellation waits.
///
/// Does not call fsync(): what survives a power failure is up to the file system. Use it from one thread at a time.
class ReplacedFile : public QIODevice
{
public:
    /// @param path as returned by filepaths::fromWide().
    explicit ReplacedFile(const QString &path);
    ~ReplacedFile() override;

    /// Puts the new contents in place. Call it once.
    /// @return true when every byte was written.
    bool commit();

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 size) override;

private:
    enum class Beside
    {
        Begun,
        Impossible,
        Refused
    };

    Beside beginBeside();
    Beside createBeside(bool replaces, const struct stat &earlier);
    void openInPlace();
    bool flush();
    bool rename();
    bool copyInPlace();
    bool writeInPlace();
    void closeAll();

    QByteArray m_path;
    QByteArray m_besideName; ///< name of the new file in the folder; empty when writing in place
    int m_folder = -1;
    int m_file = -1; ///< the new file, or the one that is overwritten
    bool m_created = false; ///< set once O_EXCL has made the file at its path; the destructor removes it
    bool m_failed = false;
    std::vector<char> m_waiting; ///< not written yet; everything when writing in place
};

#endif
