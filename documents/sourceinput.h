/// @file
/// Lets qpdf read a Source up to an end, which may lie before the file's own.
#ifndef DOCUMENTS_SOURCEINPUT_H
#define DOCUMENTS_SOURCEINPUT_H

#include "source.h"

#include <qpdf/InputSource.hh>

#include <vector>

namespace documents {

class SourceInput : public InputSource
{
public:
    /// The source must outlive this object.
    SourceInput(const Source &source, qint64 end);

    qpdf_offset_t findAndSkipNextEOL() override;
    std::string const &getName() const override { return m_name; }
    qpdf_offset_t tell() override { return m_place; }
    void seek(qpdf_offset_t offset, int whence) override;
    void rewind() override { m_place = 0; }
    size_t read(char *bytes, size_t count) override;
    void unreadCh(char) override;

private:
    /// The byte at the place, from a buffered piece; -1 at the end.
    int at(qint64 place);

    /// Notes that the piece was read next. Throws when it is one too many without a jump: then qpdf is looking for what
    /// is left of a damaged file, which may be endless.
    void noteSearch(qint64 place);

    const Source &m_source;
    const qint64 m_end;
    std::string m_name;
    qint64 m_place = 0;
    qint64 m_searched = 0; ///< bytes in one go
    qint64 m_searchEnd = 0;
    qint64 m_pieceBegin = 0;
    std::vector<char> m_piece;
};

} // namespace documents

#endif
