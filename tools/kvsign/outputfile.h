/// @file
/// A file that comes to be at once and whole, or not at all; and several of them: all or none.
#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include "checkeddevice.h"
#include "leftovers.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class OutputFile
{
public:
    /// "-" is standard output. Throws a Failure when nothing can be written there.
    explicit OutputFile(const QString &path);

    /// What is placed and not settled is taken back: an earlier file is there again as it was.
    ~OutputFile();

    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;

    /// Takes the content, and keeps it under no name or another one.
    QIODevice &device() { return m_device; }
    QString name() const { return m_name; }

    /// Sees that the disk has every byte of all, puts all in their places, and tells of it on standard output. When
    /// something of that fails, all earlier files are as they were. What cannot be taken back, say, a pipe, comes last.
    /// Without it nothing is left behind.
    static void commit(const std::vector<OutputFile *> &files, const std::function<void()> &tell);

    /// The content's size.
    qint64 size() const { return m_device.count(); }

private:
    bool isRegular() const { return !m_target.isEmpty(); }
    void stage(const QString &path);
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
    std::unique_ptr<Leftover> m_earlier; ///< what was there before
    std::unique_ptr<Leftover> m_placed; ///< where nothing was there before
};

#endif
