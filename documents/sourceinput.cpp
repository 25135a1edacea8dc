#include "sourceinput.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace documents {

namespace {

constexpr qint64 kLookedAhead = 1 << 14;

/// What is searched for objects at most, in bytes: nothing that is signed is that large where it is damaged.
constexpr qint64 kMostSearched = qint64{1} << 28;

bool isEndOfLine(int byte)
{
    return byte == '\r' || byte == '\n';
}

} // namespace

SourceInput::SourceInput(const Source &source, qint64 end)
    : m_source(source)
    , m_end(end)
    , m_name(source.name().toStdString())
{
}

int SourceInput::at(qint64 place)
{
    if (place < 0 || place >= m_end)
        return -1;
    const qint64 pieceEnd = m_pieceBegin + static_cast<qint64>(m_piece.size());
    if (place < m_pieceBegin || place >= pieceEnd) {
        m_piece.resize(static_cast<size_t>(std::min(kLookedAhead, m_end - place)));
        m_piece.resize(
            static_cast<size_t>(m_source.readSome(place, m_piece.data(), static_cast<qint64>(m_piece.size()))));
        m_pieceBegin = place;
        noteSearch(place);
        if (m_piece.empty())
            return -1;
    }
    return static_cast<unsigned char>(m_piece[static_cast<size_t>(place - m_pieceBegin)]);
}

void SourceInput::noteSearch(qint64 place)
{
    const qint64 end = place + static_cast<qint64>(m_piece.size());
    const bool continues = place <= m_searchEnd && m_searchEnd - place < kLookedAhead;
    m_searched = continues ? m_searched + std::max<qint64>(0, end - m_searchEnd) : 0;
    m_searchEnd = end;
    if (m_searched > kMostSearched)
        throw std::runtime_error("it is damaged, and too large to be searched for what is left of it");
}

qpdf_offset_t SourceInput::findAndSkipNextEOL()
{
    while (m_place < m_end && at(m_place) >= 0 && !isEndOfLine(at(m_place)))
        ++m_place;
    const qpdf_offset_t found = m_place;
    while (isEndOfLine(at(m_place)))
        ++m_place;
    last_offset = found;
    return found;
}

void SourceInput::seek(qpdf_offset_t offset, int whence)
{
    const qint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? m_place : m_end;
    if (base + offset < 0)
        throw std::runtime_error("a place before the begin of the file is asked for");
    m_place = base + offset;
}

size_t SourceInput::read(char *bytes, size_t count)
{
    last_offset = m_place;
    if (m_place >= m_end)
        return 0;
    const qint64 wanted = std::min(static_cast<qint64>(count), m_end - m_place);
    const qint64 held = m_pieceBegin + static_cast<qint64>(m_piece.size()) - m_place;
    if (wanted < kLookedAhead && (m_place < m_pieceBegin || held < wanted)) {
        m_piece.clear();
        at(m_place);
    }
    qint64 size = m_pieceBegin + static_cast<qint64>(m_piece.size()) - m_place;
    if (wanted < kLookedAhead) {
        size = std::clamp<qint64>(size, 0, wanted);
        std::memcpy(bytes, m_piece.data() + (m_place - m_pieceBegin), static_cast<size_t>(size));
    } else {
        size = m_source.readSome(m_place, bytes, wanted);
    }
    m_place += size;
    return static_cast<size_t>(size);
}

void SourceInput::unreadCh(char)
{
    if (m_place > 0)
        --m_place;
}

} // namespace documents
