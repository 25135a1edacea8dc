/// @file
/// The two ranges of bytes that a signature covers, and the room between them for its message.
#ifndef DOCUMENTS_BYTERANGE_H
#define DOCUMENTS_BYTERANGE_H

#include "openssl_types.h"
#include "source.h"

#include <functional>
#include <string>

namespace documents {

/// A document that is about to be written: a file, and the bytes to append to it.
struct Assembly
{
    Source *file; ///< only a temporary one is written to
    bool isTemporary;
    std::string tail;

    qint64 size() const { return file->size() + static_cast<qint64>(tail.size()); }
    void forEach(qint64 begin, qint64 end, const std::function<void(const char *, qint64)> &take) const;
    void patch(qint64 place, const std::string &bytes);
};

class ByteRange
{
public:
    /// Finds the dictionary whose contents begin with the mark, and writes the ranges into it.
    ByteRange(Assembly &assembly, const std::string &mark, int room);

    QByteArray digest() const;

    /// Puts the message into its room. Throws a Problem when it is too long.
    void fill(const QByteArray &message);

private:
    Assembly &m_assembly;
    qint64 m_contents = 0; ///< place of the message's "<"
    qint64 m_behind = 0; ///< place after its ">"
};

} // namespace documents

#endif
