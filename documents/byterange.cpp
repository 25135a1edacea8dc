#include "byterange.h"

#include "problem.h"

#include <algorithm>
#include <stdexcept>

namespace documents {

namespace {

constexpr char kRange[] = "/ByteRange [";

std::string hexOf(const std::string &bytes)
{
    return QByteArray::fromStdString(bytes).toHex().toStdString();
}

qint64 placeInTail(const Assembly &assembly, const std::string &needle)
{
    const size_t place = assembly.tail.find(needle);
    return place == std::string::npos ? -1 : assembly.file->size() + static_cast<qint64>(place);
}

/// Searches the file piece by piece. The pieces overlap, so that no match is cut in two.
qint64 placeInFile(const Assembly &assembly, const std::string &needle)
{
    std::string kept;
    qint64 at = 0, found = -1;
    assembly.file->forEach(0, assembly.file->size(), [&](const char *bytes, qint64 count) {
        kept.append(bytes, static_cast<size_t>(count));
        const size_t place = kept.find(needle);
        if (place != std::string::npos && found < 0)
            found = at + static_cast<qint64>(place);
        const size_t keep = std::min(kept.size(), needle.size());
        at += static_cast<qint64>(kept.size() - keep);
        kept.erase(0, kept.size() - keep);
    });
    return found;
}

} // namespace

void Assembly::forEach(qint64 begin, qint64 end, const std::function<void(const char *, qint64)> &take) const
{
    const qint64 border = file->size();
    file->forEach(begin, std::min(end, border), take);
    if (end > border) {
        const qint64 from = std::max(begin, border);
        take(tail.data() + (from - border), end - from);
    }
}

void Assembly::patch(qint64 place, const std::string &bytes)
{
    if (place >= file->size())
        tail.replace(static_cast<size_t>(place - file->size()), bytes.size(), bytes);
    else if (isTemporary)
        file->write(place, bytes.data(), static_cast<qint64>(bytes.size()));
    else
        throw std::logic_error("a document's own bytes are never changed");
}

ByteRange::ByteRange(Assembly &assembly, const std::string &mark, int room)
    : m_assembly(assembly)
{
    const std::string needle = "<" + hexOf(mark);
    m_contents = placeInTail(assembly, needle);
    if (m_contents < 0 && assembly.isTemporary)
        m_contents = placeInFile(assembly, needle);
    if (m_contents < 0)
        throw std::logic_error("the signature's room is not there");
    m_behind = m_contents + 2 + 2 * room;
    const qint64 before = std::max<qint64>(0, m_contents - 200);
    std::string text;
    assembly.forEach(
        before, m_contents, [&](const char *bytes, qint64 count) { text.append(bytes, static_cast<size_t>(count)); });
    const size_t range = text.rfind(kRange), end = text.find(']', range);
    if (range == std::string::npos || end == std::string::npos)
        throw std::logic_error("the signature's ranges are not there");
    const size_t begin = range + sizeof kRange - 1;
    std::string numbers = " 0 " + std::to_string(m_contents) + " " + std::to_string(m_behind) + " "
        + std::to_string(assembly.size() - m_behind);
    numbers.resize(end - begin, ' ');
    assembly.patch(before + static_cast<qint64>(begin), numbers);
}

QByteArray ByteRange::digest() const
{
    Digest digest;
    const auto take = [&](const char *bytes, qint64 count) { digest.add(bytes, count); };
    m_assembly.forEach(0, m_contents, take);
    m_assembly.forEach(m_behind, m_assembly.size(), take);
    return digest.result();
}

void ByteRange::fill(const QByteArray &message)
{
    const qint64 room = m_behind - m_contents - 2;
    if (2 * message.size() > room)
        throw Problem{Problem::Kind::Key, "the signature is larger than the room that was kept for it"};
    std::string hex = message.toHex().toStdString();
    hex.resize(static_cast<size_t>(room), '0');
    m_assembly.patch(m_contents + 1, hex);
}

} // namespace documents
