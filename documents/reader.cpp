#include "reader.h"

#include "problem.h"
#include "sourceinput.h"

#include <qpdf/QPDFExc.hh>

#include <algorithm>
#include <new>

namespace documents {

namespace {

constexpr qint64 kTail = 2048;
constexpr int kMostObjects = 8388607; // the limit that PDF readers must support
constexpr qint64 kLeastFile = 20;

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n' || byte == '\f' || byte == '\0';
}

/// The last section, by the place that the file's end names. Throws when that is not a number or lies outside.
CrossReference lastSection(const Source &source, qint64 end)
{
    const qint64 begin = std::max<qint64>(0, end - kTail);
    const QByteArray tail = source.read(begin, end - begin);
    const int word = tail.lastIndexOf("startxref");
    if (word < 0)
        return {-1, false};
    QByteArray digits;
    int at = word + 9;
    while (at < tail.size() && isBlank(tail[at]))
        ++at;
    while (at < tail.size() && tail[at] >= '0' && tail[at] <= '9')
        digits += tail[at++];
    bool isNumber = false;
    const qint64 place = digits.toLongLong(&isNumber);
    if (!isNumber || place <= 0 || place >= end)
        return {-1, false};
    const QByteArray there = source.read(place, std::min<qint64>(32, end - place));
    int first = 0;
    while (first < there.size() && isBlank(there[first]))
        ++first;
    return {place, !there.mid(first).startsWith("xref")};
}

int firstNumberWithoutObject(QPDF &pdf)
{
    int last = 0;
    for (const auto &entry : pdf.getXRefTable())
        last = std::max(last, entry.first.getObj());
    QPDFObjectHandle size = pdf.getTrailer().getKey("/Size");
    if (size.isInteger() && size.getIntValue() > last + 1 && size.getIntValue() <= kMostObjects)
        return static_cast<int>(size.getIntValue());
    return last + 1;
}

Rewrite rewriteOf(Reader &reader, const Source &source)
{
    if (reader.pdf.isEncrypted())
        return Rewrite::Encrypted;
    if (reader.pdf.anyWarnings() || reader.last.place < 0 || source.read(0, 5) != "%PDF-"
        || !reader.pdf.getTrailer().getKey("/Root").isIndirect() || reader.firstNew > kMostObjects)
        return Rewrite::Damaged;
    if (reader.pdf.getTrailer().hasKey("/XRefStm"))
        return Rewrite::Hybrid;
    return Rewrite::None;
}

} // namespace

Reader::Reader(const Source &source, qint64 end, const QByteArray &password)
{
    pdf.setSuppressWarnings(true);
    pdf.processInputSource(std::make_shared<SourceInput>(source, end), password.constData());
    last = lastSection(source, end);
    firstNew = firstNumberWithoutObject(pdf);
    if (!pdf.getRoot().isDictionary() || !pdf.getRoot().getKey("/Pages").isDictionary())
        throw Problem{Problem::Kind::File, QString("%1: there are no pages in it").arg(source.name())};
    rewrite = rewriteOf(*this, source);
}

void rethrowAsProblem(const QString &name)
{
    try {
        throw;
    } catch (const Problem &) {
        throw;
    } catch (const std::bad_alloc &) {
        throw Problem{Problem::Kind::File, QString("%1: needs more memory than there is").arg(name)};
    } catch (const QPDFExc &error) {
        if (error.getErrorCode() == qpdf_e_password)
            throw Problem{Problem::Kind::Password, QString("%1: is encrypted; its password is another one").arg(name)};
        throw Problem{Problem::Kind::File,
            QString("%1: cannot be read as a PDF: %2").arg(name, QString::fromStdString(error.getMessageDetail()))};
    } catch (const std::exception &error) {
        throw Problem{Problem::Kind::File, QString("%1: cannot be read as a PDF: %2").arg(name, error.what())};
    }
}

std::unique_ptr<Reader> openReader(const Source &source, qint64 end, const QByteArray &password)
{
    if (end < kLeastFile)
        throw Problem{Problem::Kind::File, QString("%1: is no PDF").arg(source.name())};
    try {
        return std::make_unique<Reader>(source, end, password);
    } catch (...) {
        rethrowAsProblem(source.name());
    }
}

} // namespace documents
