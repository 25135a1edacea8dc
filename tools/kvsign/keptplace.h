/// @file
/// An existing file that must be overwritten, because a new file could not replace it: one with two names, for example,
/// or one of another user.
#ifndef KEPTPLACE_H
#define KEPTPLACE_H

#include "leftovers.h"
#include "plainio.h"

#include <QString>

#include <memory>

class KeptPlace
{
public:
    /// Opens the file without writing. Throws a Failure when it cannot be written, or when its content cannot be read
    /// to be kept.
    /// @param name for messages
    KeptPlace(const QByteArray &path, const QString &name);

    /// Copies the content into the file and syncs it to the disk. Throws a Failure when that fails. Until release(),
    /// the earlier content is put back when this object is destroyed or a signal ends the process.
    void write(int content);

    void release();

private:
    const QString m_name;
    plainio::Descriptor m_file;
    plainio::Descriptor m_earlier; ///< its earlier content
    std::unique_ptr<Leftover> m_guard; ///< null before write()
};

#endif
