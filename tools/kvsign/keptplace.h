/// @file
/// An earlier file that no new one can stand for, say, one with two names or another user's: it is written over.
#ifndef KEPTPLACE_H
#define KEPTPLACE_H

#include "leftovers.h"
#include "plainio.h"

#include <QString>

#include <memory>

class KeptPlace
{
public:
    /// Opens the file, and writes nothing. Throws a Failure when it cannot be written, or not be read to be kept.
    /// @param name for messages
    KeptPlace(const QByteArray &path, const QString &name);

    /// Gives the file another one's content, which the disk has then. Throws a Failure when it does not take it. Until
    /// release() the earlier content comes back when this object is destroyed, and also by a signal.
    void write(int content);

    void release();

private:
    const QString m_name;
    plainio::Descriptor m_file;
    plainio::Descriptor m_earlier; ///< what it held
    std::unique_ptr<Leftover> m_guard; ///< null before write()
};

#endif
