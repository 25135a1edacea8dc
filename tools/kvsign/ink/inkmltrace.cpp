#include "inkmltrace.h"

#include <charconv>
#include <cmath>

namespace {

constexpr long double kLargest = 1e300L; // nothing larger can be a coordinate or a time
constexpr int kHexadecimal = 16;

bool isPrefix(char c)
{
    return c == '!' || c == '\'' || c == '"';
}

bool isLetterValue(char c)
{
    return c == '*' || c == '?' || c == 'T' || c == 'F';
}

bool isXmlBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// The rest of a malformed number, for the message.
const char *endOfWord(const char *place, const char *end)
{
    while (place < end && !isXmlBlank(*place) && *place != ',' && place[0] != '\'' && place[0] != '"')
        ++place;
    return place;
}

} // namespace

InkmlTrace::InkmlTrace(const QByteArray &text, const InkmlFormat &format)
    : m_text(text)
    , m_format(format)
    , m_place(m_text.constData())
    , m_end(m_place + m_text.size())
{
}

bool InkmlTrace::next()
{
    skipBlanks();
    if (m_place == m_end)
        return false;
    if (m_points++ == 0) { // not before: traces without points need no memory
        m_states.resize(m_format.columns.size());
        m_values.resize(m_format.columns.size());
    }
    size_t column = 0;
    for (; !isAtEndOfPoint(); skipBlanks()) {
        if (column == m_format.columns.size())
            throw at(QString("more values than the trace format's %1").arg(column));
        takeValue(column++);
    }
    if (column < m_format.regular)
        throw at(QString("%1 values where the trace format has %2").arg(column).arg(m_format.regular));
    if (m_place < m_end)
        ++m_place;
    return true;
}

void InkmlTrace::skipBlanks()
{
    while (m_place < m_end && isXmlBlank(*m_place))
        ++m_place;
}

void InkmlTrace::takeValue(size_t column)
{
    if (isPrefix(*m_place)) {
        m_states[column].prefix = *m_place++;
        skipBlanks();
    }
    if (isAtEndOfPoint())
        throw at(QString("%1 has a prefix without a value").arg(m_format.columns[column].name));
    if (isLetterValue(*m_place))
        takeLetter(m_values[column]);
    else
        takeNumber(column);
}

void InkmlTrace::takeLetter(InkmlValue &value)
{
    const char letter = *m_place++;
    if (letter == '*')
        return;
    value.isKnown = letter != '?';
    value.letter = letter == '?' ? '\0' : letter;
    value.number = letter == 'T' ? 1 : 0;
}

void InkmlTrace::takeNumber(size_t column)
{
    const char *const begin = m_place;
    State &state = m_states[column];
    InkmlValue &value = m_values[column];
    const QString &name = m_format.columns[column].name;
    long double read = 0;
    if (*m_place == '+' || *m_place == '-') {
        ++m_place;
        skipBlanks();
        read = *begin == '-' ? -number() : number();
    } else {
        read = number();
    }
    if (std::isnan(read))
        throw at(QString("%1 is \"%2\", not a number")
                     .arg(name, QString::fromUtf8(begin, static_cast<int>(endOfWord(begin, m_end) - begin)).left(40)));
    const long double before = value.number;
    if (state.prefix == '!')
        value.number = read;
    else
        value.number = before + (state.prefix == '"' ? state.velocity + read : read);
    state.velocity = value.number - before;
    value.isKnown = true;
    value.letter = 0;
    if (std::fabs(value.number) > kLargest)
        throw at(QString("%1 is more than a record holds").arg(name));
}

/// Reads the number at the current place; NaN when there is none.
long double InkmlTrace::number()
{
    const bool isHexadecimal = m_place < m_end && *m_place == '#';
    if (isHexadecimal)
        ++m_place;
    quint64 whole = 0;
    const auto wholeEnd = std::from_chars(m_place, m_end, whole, isHexadecimal ? kHexadecimal : 10);
    const bool isWhole = wholeEnd.ec == std::errc()
        && (isHexadecimal || wholeEnd.ptr == m_end || (*wholeEnd.ptr != '.' && (*wholeEnd.ptr | ' ') != 'e'));
    const bool isDecimal = m_place < m_end && (isDigit(*m_place) || *m_place == '.') && !isHexadecimal;
    if (isWhole) {
        m_place = wholeEnd.ptr;
        return whole;
    }
    double decimal = 0;
    const auto end = isDecimal ? std::from_chars(m_place, m_end, decimal)
                               : std::from_chars_result{m_place, std::errc::invalid_argument};
    if (end.ec == std::errc::invalid_argument)
        return NAN;
    const bool isTiny = end.ec == std::errc::result_out_of_range
        && QByteArray(m_place, static_cast<int>(end.ptr - m_place)).toLower().contains("e-");
    m_place = end.ptr;
    return end.ec == std::errc() ? decimal : isTiny ? 0 : HUGE_VALL;
}

QString InkmlTrace::at(const QString &what) const
{
    return QString("point %1: %2").arg(m_points).arg(what);
}
