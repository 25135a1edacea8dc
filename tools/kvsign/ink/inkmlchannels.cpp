#include "inkmlchannels.h"

#include <algorithm>

namespace {

bool isDigit(QChar c)
{
    return c >= '0' && c <= '9';
}

bool isPrefix(QChar c)
{
    return c == '!' || c == '\'' || c == '"';
}

bool isLetterValue(QChar c)
{
    return c == '*' || c == '?' || c == 'T' || c == 'F';
}

bool isBlank(QChar c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

} // namespace

InkmlTrace::InkmlTrace(const QString &text, const std::vector<const InkmlChannel *> &channels)
    : m_text(text)
    , m_channels(channels)
    , m_states(channels.size())
{
}

bool InkmlTrace::next(POINTDATA &point)
{
    skipBlanks();
    if (m_place == m_text.size())
        return false;
    ++m_points;
    for (size_t i = 0; i < m_channels.size(); ++i) {
        if (!takeValue(m_channels[i], m_states[i], point))
            throw at(QString("%1 values where the trace format has %2").arg(i).arg(m_channels.size()));
    }
    skipBlanks();
    if (m_place < m_text.size() && m_text.at(m_place) != ',')
        throw at(QString("more values than the trace format's %1").arg(m_channels.size()));
    ++m_place;
    m_place = std::min(m_place, m_text.size());
    return true;
}

void InkmlTrace::skipBlanks()
{
    while (m_place < m_text.size() && isBlank(m_text.at(m_place)))
        ++m_place;
}

bool InkmlTrace::takeValue(const InkmlChannel *channel, State &state, POINTDATA &point)
{
    skipBlanks();
    if (m_place < m_text.size() && isPrefix(m_text.at(m_place)))
        state.prefix = m_text.at(m_place++);
    skipBlanks();
    if (m_place == m_text.size() || m_text.at(m_place) == ',')
        return false;
    const int begin = m_place++;
    if (!isLetterValue(m_text.at(begin))) {
        while (m_place < m_text.size() && (isDigit(m_text.at(m_place)) || m_text.at(m_place) == '.'))
            ++m_place;
    }
    const QByteArray text = m_text.midRef(begin, m_place - begin).toUtf8();
    if (channel == nullptr)
        return true;
    if (!takeNumber(state, text))
        throw at(QString("the differences of %1 add up to more than a record holds").arg(channel->name));
    QByteArray value = state.text;
    if (channel->field == Field::StrokeEnd) // the channel says that the tip touches
        value = value == "T" ? "0" : value == "F" ? "1" : value;
    const QString why = takeField(point, channel->field, value);
    if (!why.isEmpty())
        throw at(QString("%1 %2").arg(channel->name, why));
    return true;
}

bool InkmlTrace::takeNumber(State &state, const QByteArray &text)
{
    if (text == "*")
        return true;
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (state.prefix == '!' || !isNumber) {
        state.text = text.startsWith('+') ? text.mid(1) : text;
        // Two values may lie further apart than a difference can say; nobody asks for that one.
        state.velocity = static_cast<qint64>(static_cast<quint64>(number) - static_cast<quint64>(state.value));
        state.value = number;
        return true;
    }
    qint64 velocity = number;
    const bool isSecond = state.prefix == '"';
    if (isSecond && __builtin_add_overflow(state.velocity, number, &velocity))
        return false;
    state.velocity = velocity;
    if (__builtin_add_overflow(state.value, velocity, &state.value))
        return false;
    state.text = QByteArray::number(state.value);
    return true;
}

QString InkmlTrace::at(const QString &what) const
{
    return QString("point %1: %2").arg(m_points).arg(what);
}
