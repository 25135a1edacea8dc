/// @file
/// Opens a PDF with qpdf, and finds out how it can be continued.
#ifndef DOCUMENTS_READER_H
#define DOCUMENTS_READER_H

#include "source.h"

#include <qpdf/QPDF.hh>

#include <memory>

namespace documents {

/// Why a file cannot be appended to and has to be written anew.
enum class Rewrite
{
    None,
    Encrypted,
    Damaged,
    Hybrid
};

/// How the file's last cross-reference section is written.
struct CrossReference
{
    qint64 place = 0;
    bool isStream = false;
};

struct Reader
{
    Reader(const Source &source, qint64 end, const QByteArray &password);

    QPDF pdf;
    Rewrite rewrite = Rewrite::None;
    CrossReference last;

    /// The first object number that is free.
    int firstNew = 1;
};

/// Rethrows qpdf's exceptions as a Problem that names the file.
[[noreturn]] void rethrowAsProblem(const QString &name);

/// Opens the first `end` bytes as a document. Throws a Problem.
std::unique_ptr<Reader> openReader(const Source &source, qint64 end, const QByteArray &password);

} // namespace documents

#endif
