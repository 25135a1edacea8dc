/// @file
/// A file that takes another's place when it is whole, so that a failure leaves the earlier file as it was.
#ifndef REPLACEDFILE_H
#define REPLACEDFILE_H

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <sys/stat.h>
#include <vector>

/// Open for writing when it could be had: check isOpen(). What is written goes into a new file in the same folder,
/// which commit() renames; without it nothing has happened. The new file has the permissions and the group of the
/// earlier one, and of a file that was not there before those that any new file has.
///
/// An earlier file is written in place, as a whole and by commit() alone, where a new one could not take over what it
/// is: a link, no regular file, another user's, one with several names, one with access rights beyond its mode, or one
/// in a folder that takes no new file. A file that may not be written is not opened either way.
///
/// The data are not forced to the disk: what a computer that loses its power keeps is up to the file system, as with
/// any file. One thread at a time.
class ReplacedFile : public QIODevice
{
public:
    /// @param path as filepaths::fromWide gives it.
    explicit ReplacedFile(const QString &path);
    ~ReplacedFile() override;

    /// Puts the file in its place. Once only.
    /// @return true when every byte has been written.
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
    bool takeOver(const struct stat &earlier) const;
    void openInPlace();
    bool flush();
    bool rename();
    bool copyInPlace();
    bool writeInPlace();
    void closeAll();

    QByteArray m_path;
    QByteArray m_besideName; ///< in the folder; empty when there is none
    int m_folder = -1;
    int m_file = -1; ///< the new file, or the one in place
    bool m_created = false; ///< the file in place was not there before
    bool m_failed = false;
    std::vector<char> m_waiting; ///< of a file in place all of it
};

#endif
