#include "appendedbytes.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace documents {

namespace {

constexpr qint64 kTail = 2048; // bytes in which the end of the last revision is
constexpr size_t kWindow = 512; // bytes before the word "obj" in which its numbers are

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n' || byte == '\f' || byte == '\0';
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// Finds "12 0 obj" and remembers the last place of each number.
class DefinitionScan
{
public:
    explicit DefinitionScan(qint64 begin)
        : m_place(begin)
    {
    }

    void take(const char *bytes, qint64 count)
    {
        const size_t kept = m_text.size();
        m_text.append(bytes, static_cast<size_t>(count));
        for (size_t at = m_text.find("obj", kept < 2 ? 0 : kept - 2); at != std::string::npos;
             at = m_text.find("obj", at + 3))
            look(at);
        const size_t gone = m_text.size() - std::min(m_text.size(), kWindow);
        m_text.erase(0, gone);
        m_place += static_cast<qint64>(gone);
    }

    std::map<int, qint64> places;
    bool isOdd = false; ///< a comment stands between the numbers, which only some programs understand

private:
    void look(size_t at)
    {
        size_t end = at;
        skipBlanks(end);
        const size_t generation = numberBefore(end);
        if (generation == end)
            return;
        size_t behind = generation;
        if (!skipBlanks(behind))
            return;
        const size_t number = numberBefore(behind);
        constexpr size_t kMostDigits = 9;
        if (number < behind && behind - number <= kMostDigits)
            places[std::stoi(m_text.substr(number, behind - number))] = m_place + static_cast<qint64>(number);
    }

    size_t numberBefore(size_t end) const
    {
        while (end > 0 && isDigit(m_text[end - 1]))
            --end;
        return end;
    }

    /// Goes back over blanks. @return whether there was one
    bool skipBlanks(size_t &end)
    {
        const size_t before = end;
        bool isOtherLine = false;
        for (; end > 0 && isBlank(m_text[end - 1]); --end)
            isOtherLine = isOtherLine || m_text[end - 1] == '\n' || m_text[end - 1] == '\r';
        if (isOtherLine) {
            const size_t last = m_text.find_last_of("\r\n", end == 0 ? 0 : end - 1);
            const size_t line = last == std::string::npos ? 0 : last;
            isOdd = isOdd || m_text.find('%', line) < end;
        }
        return end < before;
    }

    std::string m_text;
    qint64 m_place; ///< of the text's first byte
};

/// Whether the cross-references name what a repairing program finds as the last object of a number.
bool isNamed(const std::map<int, QPDFXRefEntry> &table, int number, qint64 place, const std::set<int> &dangling)
{
    constexpr qint64 kSlack = 2; // some programs name the end of the line before
    const auto found = table.find(number);
    if (found == table.end())
        return dangling.count(number) == 0; // nothing refers to it
    QPDFXRefEntry entry = found->second;
    if (entry.getType() == 2) {
        const auto holder = table.find(entry.getObjStreamNumber());
        return holder != table.end() && holder->second.getType() == 1 && holder->second.getOffset() > place;
    }
    return entry.getType() != 1 || (place >= entry.getOffset() && place - entry.getOffset() <= kSlack);
}

/// Where the last revision ends: behind its "%%EOF".
qint64 endOfLast(const Source &source)
{
    const qint64 begin = std::max<qint64>(0, source.size() - kTail);
    const QByteArray tail = source.read(begin, source.size() - begin);
    int at = tail.lastIndexOf("startxref");
    if (at < 0)
        return 0;
    at += 9;
    while (at < tail.size() && (isBlank(tail[at]) || isDigit(tail[at])))
        ++at;
    return begin + (tail.mid(at, 5) == "%%EOF" ? at + 5 : at);
}

} // namespace

bool hasOnlyBlanks(const Source &source, qint64 begin)
{
    bool areBlank = true;
    source.forEach(begin, source.size(),
        [&](const char *bytes, qint64 count) { areBlank = areBlank && std::all_of(bytes, bytes + count, isBlank); });
    return areBlank;
}

bool hasStrayBytes(const Source &source, qint64 begin, QPDF &now, const std::set<int> &dangling)
{
    if (!hasOnlyBlanks(source, std::max(begin, endOfLast(source))))
        return true;
    DefinitionScan scan(begin);
    source.forEach(begin, source.size(), [&](const char *bytes, qint64 count) { scan.take(bytes, count); });
    std::map<int, QPDFXRefEntry> table;
    for (const auto &entry : now.getXRefTable())
        table[entry.first.getObj()] = entry.second;
    return scan.isOdd || std::any_of(scan.places.begin(), scan.places.end(), [&](const auto &found) {
        return !isNamed(table, found.first, found.second, dangling);
    });
}

} // namespace documents
