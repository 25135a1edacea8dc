/// @file
/// An output file that appears under its name at once and complete, or not at all; several of them: all or none.
#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "checkeddevice.h"
#include "keptplace.h"
#include "leftovers.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

#include <sys/stat.h>

class OutputFile
{
public:
    /// "-" is standard output. An earlier file is replaced by one with its mode and group; one that a new file cannot
    /// stand for, say, with two names or another user's, is written over. Throws a Failure when nothing can be written
    /// there.
    explicit OutputFile(const QString &path);

    /// A file that was put in place but not committed is removed again, and an earlier file of that name is put back.
    ~OutputFile();

    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Where the content is written: until commit() the file has no name, or another one.
    QIODevice &device() { return m_device; }
    QString name() const { return m_name; }

    /// Syncs all files to the disk, puts them in their places and calls `tell`, which prints the result. When any of it
    /// fails, all earlier files are as they were. What cannot be undone, such as writing to a pipe, comes last. Files
    /// that are never committed leave nothing behind.
    static void commit(const std::vector<OutputFile *> &files, const std::function<void()> &tell);

    /// Size of the content in bytes.
    qint64 size() const { return m_device.count(); }

private:
    bool isRegular() const { return !m_target.isEmpty(); }
    void stage(const QString &path);
    bool stageBeside(const QString &path, const struct stat *earlier);
    void finish();
    void place();
    void replace();
    void nameStaged();
    void passOn();
    void settle();
    [[noreturn]] void fail() const;

    QString m_name;
    QString m_path;
    QByteArray m_target; ///< empty for what cannot be replaced: pipes, devices, standard output
    CheckedDevice m_device;
    std::unique_ptr<Leftover> m_staged; ///< the content's name until it is in its place; null while it has none
    std::unique_ptr<KeptPlace> m_kept; ///< the target, where it is written over; null where it is replaced
    std::unique_ptr<Leftover> m_earlier; ///< what was there before
    std::unique_ptr<Leftover> m_placed; ///< where nothing was there before
};

#endif
