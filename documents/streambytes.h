/// @file
/// A stream's decoded bytes, with an end to what a few bytes can become.
#ifndef DOCUMENTS_STREAMBYTES_H
#define DOCUMENTS_STREAMBYTES_H

#include <QByteArray>

#include <qpdf/QPDFObjectHandle.hh>

namespace documents {

/// Throws a std::runtime_error when they are more than `most` or cannot be decoded.
QByteArray streamBytes(QPDFObjectHandle stream, qint64 most);

struct PageBytes
{
    QByteArray bytes;
    bool isBroken = false; ///< a stream of it cannot be decoded: some programs show nothing behind that
};

/// All that a page draws; what is no stream counts for nothing. Throws a std::runtime_error when it is more than
/// `most`.
PageBytes contentBytes(QPDFObjectHandle page, qint64 most);

} // namespace documents

#endif
