#include "textlines.h"

#include <QIODevice>
#include <QTextCodec>

#include <algorithm>

namespace {

constexpr int kLinesPiece = 1 << 16;

struct Mark
{
    const char *bytes;
    const char *codec; ///< null for UTF-8
};

constexpr Mark kMarks[] = {{"\xef\xbb\xbf", nullptr}, {"\xff\xfe", "UTF-16LE"}, {"\xfe\xff", "UTF-16BE"}};

const Mark *markOf(const QByteArray &begin)
{
    const auto *found = std::find_if(
        std::begin(kMarks), std::end(kMarks), [&](const Mark &mark) { return begin.startsWith(mark.bytes); });
    return found == std::end(kMarks) ? nullptr : found;
}

} // namespace

QByteArray decodedBegin(const QByteArray &begin)
{
    const Mark *const mark = markOf(begin);
    if (mark == nullptr)
        return begin;
    const QByteArray text = begin.mid(static_cast<int>(qstrlen(mark->bytes)));
    return mark->codec == nullptr ? text : QTextCodec::codecForName(mark->codec)->toUnicode(text).toUtf8();
}

TextLines::TextLines(QIODevice &device)
    : m_device(device)
{
}

bool TextLines::next(QByteArray &line, int most)
{
    int end = endOfLine(most);
    while (end < 0 && fill())
        end = endOfLine(most);
    if (end < 0)
        end = m_text.size();
    m_isTooLong = end - m_place > most;
    if (end == m_place && m_place == m_text.size())
        return false;
    line = m_text.mid(m_place, end - m_place);
    m_place = end;
    if (m_place < m_text.size() && m_text.at(m_place) == '\r')
        ++m_place;
    if (m_place < m_text.size() && m_text.at(m_place) == '\n' && (m_place == end || m_text.at(m_place - 1) == '\r'))
        ++m_place;
    ++m_number;
    return true;
}

/// Where the line ends or becomes too long; -1 when more must be read. A CR at the end of a piece may be followed by
/// its LF in the next one.
int TextLines::endOfLine(int most) const
{
    for (int place = m_place; place < m_text.size(); ++place) {
        const char c = m_text.at(place);
        if (c == '\n' || place - m_place > most)
            return place;
        if (c == '\r')
            return place + 1 < m_text.size() || m_atEnd ? place : -1;
    }
    return -1;
}

bool TextLines::fill()
{
    if (m_atEnd)
        return false;
    QByteArray piece = m_device.read(kLinesPiece);
    m_atEnd = piece.isEmpty();
    if (m_atBegin) {
        const Mark *const mark = markOf(piece);
        if (mark != nullptr)
            piece.remove(0, static_cast<int>(qstrlen(mark->bytes)));
        if (mark != nullptr && mark->codec != nullptr)
            m_decoder.reset(QTextCodec::codecForName(mark->codec)->makeDecoder(QTextCodec::IgnoreHeader));
        m_atBegin = false;
    }
    m_text.remove(0, m_place);
    m_place = 0;
    m_text += m_decoder != nullptr ? m_decoder->toUnicode(piece).toUtf8() : piece;
    return true;
}
