#include "requesthead.h"

#include <algorithm>
#include <cstring>

namespace bridge {

namespace {

bool isTokenLetter(char letter)
{
    return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z')
        || (letter != 0 && std::strchr("!#$%&'*+-.^_`|~", letter) != nullptr);
}

bool isToken(const QByteArray &text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isTokenLetter);
}

bool isTargetLetter(char letter)
{
    return letter > 0x20 && letter < 0x7f;
}

bool isValueLetter(char letter)
{
    return letter == '\t' || (letter >= 0x20 && letter < 0x7f);
}

/// What may never come in a head, wherever it ends.
bool hasForeignBytes(const QByteArray &bytes)
{
    for (int i = 0; i < bytes.size(); ++i) {
        const char letter = bytes.at(i);
        if (letter == '\r'       ? i + 1 < bytes.size() && bytes.at(i + 1) != '\n'
                : letter == '\n' ? i == 0 || bytes.at(i - 1) != '\r'
                                 : !isValueLetter(letter))
            return true;
    }
    return false;
}

bool readRequestLine(const QByteArray &line, RequestHead &head)
{
    const QList<QByteArray> parts = line.split(' ');
    if (parts.size() != 3 || !isToken(parts[0]) || parts[2] != "HTTP/1.1")
        return false;
    head.method = parts[0];
    head.target = parts[1];
    return !head.target.isEmpty() && std::all_of(head.target.begin(), head.target.end(), isTargetLetter);
}

bool readField(const QByteArray &line, RequestHead &head)
{
    const int colon = line.indexOf(':');
    if (colon <= 0 || !isToken(line.left(colon)))
        return false;
    head.fields.push_back({line.left(colon).toLower(), line.mid(colon + 1).trimmed()});
    return true;
}

} // namespace

int RequestHead::count(const char *name) const
{
    return static_cast<int>(
        std::count_if(fields.begin(), fields.end(), [&](const HeadField &field) { return field.name == name; }));
}

std::optional<QByteArray> RequestHead::single(const char *name) const
{
    if (count(name) != 1)
        return std::nullopt;
    return std::find_if(fields.begin(), fields.end(), [&](const HeadField &field) {
        return field.name == name;
    })->value;
}

std::vector<QByteArray> RequestHead::words(const char *name) const
{
    std::vector<QByteArray> found;
    for (const HeadField &field : fields) {
        if (field.name != name)
            continue;
        for (const QByteArray &word : field.value.split(','))
            found.push_back(word.trimmed().toLower());
    }
    return found;
}

HeadState readHead(const QByteArray &bytes, RequestHead &head)
{
    const int end = bytes.indexOf("\r\n\r\n");
    const QByteArray text = bytes.left(end < 0 ? bytes.size() : end + 4);
    if (hasForeignBytes(text) || text.size() > kLongestHead)
        return HeadState::Malformed;
    if (end < 0)
        return HeadState::Incomplete;
    head = {};
    bool isFirst = true;
    for (int from = 0; from < end;) {
        const int to = text.indexOf("\r\n", from);
        const QByteArray line = text.mid(from, to - from);
        if (!(isFirst ? readRequestLine(line, head) : readField(line, head)))
            return HeadState::Malformed;
        isFirst = false;
        from = to + 2;
    }
    return isFirst ? HeadState::Malformed : HeadState::Complete;
}

} // namespace bridge
