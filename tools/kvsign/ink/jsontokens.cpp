#include "jsontokens.h"

#include <cstring>

namespace {

constexpr int kJsonPiece = 1 << 16;
constexpr int kEnd = -1;
constexpr int kLongestToken = 1 << 20;
constexpr int kDeepestValue = 100;

bool isBlank(int c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

bool isWordCharacter(int c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' || c == '-'
        || c == '.';
}

} // namespace

JsonTokens::JsonTokens(QIODevice &device, const QString &name)
    : m_device(device)
    , m_name(name)
{
    next();
    if (m_text.startsWith("\xef\xbb\xbf"))
        next();
}

int JsonTokens::peek()
{
    if (m_place == m_piece.size()) {
        m_piece = m_device.read(kJsonPiece);
        m_place = 0;
    }
    return m_piece.isEmpty() ? kEnd : static_cast<unsigned char>(m_piece.at(m_place));
}

int JsonTokens::take()
{
    const int c = peek();
    if (c == kEnd)
        return kEnd;
    ++m_place;
    ++m_column;
    if (c == '\n') {
        ++m_line;
        m_column = 0;
    }
    return c;
}

void JsonTokens::next()
{
    int c = take();
    while (isBlank(c))
        c = take();
    m_tokenLine = m_line;
    m_tokenColumn = m_column;
    m_text.resize(0);
    if (c == kEnd) {
        m_kind = Kind::End;
        ++m_tokenColumn;
    } else if (std::strchr("[]{}:,", c) != nullptr && c != 0) {
        m_kind = Kind::Structure;
        m_text += static_cast<char>(c);
    } else if (c == '"') {
        readString();
    } else {
        readWord(static_cast<char>(c));
    }
}

void JsonTokens::readString()
{
    m_kind = Kind::String;
    for (int c = take(); c != '"'; c = take()) {
        if (c == kEnd)
            throw broken("the text ends inside a string");
        if (c < ' ')
            throw broken("a string has a control character in it");
        if (c == '\\')
            readEscape();
        else
            m_text += static_cast<char>(c);
        if (m_text.size() > kLongestToken)
            throw broken("the string is too long");
    }
}

void JsonTokens::readEscape()
{
    static constexpr char kEscapes[] = "\"\\/bfnrt";
    static constexpr char kMeanings[] = "\"\\/\b\f\n\r\t";
    const int c = take();
    const char *escape = c > 0 ? std::strchr(kEscapes, c) : nullptr;
    if (escape != nullptr) {
        m_text += kMeanings[escape - kEscapes];
        return;
    }
    if (c != 'u')
        throw broken("a string has an escape that JSON does not know");
    QByteArray digits;
    for (int i = 0; i < 4; ++i) {
        const int digit = take();
        digits += digit == kEnd ? '?' : static_cast<char>(digit);
    }
    bool isNumber = false;
    const ushort unit = digits.toUShort(&isNumber, 16);
    if (!isNumber)
        throw broken("a string has \\u without four digits");
    m_text += QString(QChar(unit)).toUtf8();
}

void JsonTokens::readWord(char first)
{
    m_kind = Kind::Word;
    m_text += first;
    const bool isMark = static_cast<unsigned char>(first) == 0xef && m_tokenLine == 1 && m_tokenColumn == 1;
    if (isMark) { // a byte order mark, which some editors write
        m_text += static_cast<char>(take());
        m_text += static_cast<char>(take());
        return;
    }
    if (!isWordCharacter(static_cast<unsigned char>(first)))
        throw broken(QString("there is a character that JSON does not have there: \"%1\"").arg(QChar(uchar(first))));
    while (isWordCharacter(peek())) {
        m_text += static_cast<char>(take());
        if (m_text.size() > kLongestToken)
            throw broken("the word is too long");
    }
}

void JsonTokens::expect(char structure)
{
    if (!is(structure)) {
        const QString there = m_kind == Kind::End ? QString("the text ends")
                                                  : QString("there is \"%1\"").arg(QString::fromUtf8(m_text.left(40)));
        throw broken(QString("%1 where a \"%2\" is expected").arg(there).arg(QChar(structure)));
    }
    next();
}

void JsonTokens::skipValue()
{
    int depth = 0;
    do {
        if (m_kind == Kind::End)
            throw broken("the text ends inside a value");
        const bool opens = is('[') || is('{');
        const bool closes = is(']') || is('}');
        depth += opens ? 1 : closes ? -1 : 0;
        if (depth > kDeepestValue || depth < 0)
            throw broken("the brackets do not match, or are too many");
        next();
    } while (depth > 0);
}

Failure JsonTokens::broken(const QString &what) const
{
    return failed(QString("%1:%2:%3: %4").arg(m_name).arg(m_tokenLine).arg(m_tokenColumn).arg(what));
}
