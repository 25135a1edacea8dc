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
    /// "-" is standard output. An earlier file is replaced by a new one with its mode and group. If a new file could
    /// not replace it (it has two names, for example, or another owner), it is overwritten. Throws a Failure when
    /// nothing can be written there.
    explicit OutputFile(const QString &path);

    /// A file that was put in place but not committed is removed again, and an earlier file of that name is put back.
    ~OutputFile();

    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Write the content here. Until commit() the file has no name, or another one.
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
    QByteArray m_target; ///< empty for pipes, devices and standard output, which are not replaced
    CheckedDevice m_device;
    std::unique_ptr<Leftover> m_staged; ///< the new file's temporary name; null while it has none
    std::unique_ptr<KeptPlace> m_kept; ///< the target when it is overwritten; null when it is replaced
    std::unique_ptr<Leftover> m_earlier; ///< the earlier file, to be put back
    std::unique_ptr<Leftover> m_placed; ///< the new file, to be removed when there was no earlier one
};

#endif
