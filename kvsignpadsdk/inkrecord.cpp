#include "inkrecord.h"

#include "imageloader.h"
#include "replacedfile.h"

#include <algorithm>
#include <cstring>

namespace inkrecord {

namespace {

constexpr size_t kLongestPiece = size_t{1} << 26;

bool isAlphabet(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' || c == '/';
}

// QByteArray cannot hold the longest texts, so they are decoded in pieces. Each piece must hold whole groups of four
// characters, so characters outside the alphabet are dropped first.
template <class TakeBytes>
void decodeInPieces(const char *text, TakeBytes take)
{
    const size_t length = std::strlen(text);
    if (length <= kLongestPiece) {
        take(QByteArray::fromBase64(QByteArray::fromRawData(text, static_cast<int>(length))));
        return;
    }
    QByteArray piece;
    piece.reserve(static_cast<int>(kLongestPiece));
    for (const char *end = text + length; text != end; ++text) {
        if (!isAlphabet(*text))
            continue;
        piece += *text;
        if (static_cast<size_t>(piece.size()) == kLongestPiece) {
            take(QByteArray::fromBase64(piece));
            piece.resize(0);
        }
    }
    take(QByteArray::fromBase64(piece));
}

} // namespace

char *textOf(const void *points, size_t count, size_t &length)
{
    static_assert(sizeof(_POINTDATA) % 3 == 0, "the terminator has a group of its own");
    const size_t size = count * sizeof(_POINTDATA);
    length = size / 3 * 4 + 4;
    char *text = new char[length + 1];
    char *end = base64text::append(base64text::append(text, points, size), "\0", 1);
    *end = '\0';
    return text;
}

inkpoints::List decodePoints(const char *text)
{
    inkpoints::List points;
    QByteArray rest;
    decodeInPieces(text, [&](const QByteArray &bytes) {
        rest += bytes;
        const size_t entries = static_cast<size_t>(rest.size()) / sizeof(_POINTDATA);
        const size_t before = points.size();
        points.resize(before + entries);
        if (entries > 0)
            std::memcpy(static_cast<void *>(points.data() + before), rest.constData(), entries * sizeof(_POINTDATA));
        rest.remove(0, static_cast<int>(entries * sizeof(_POINTDATA)));
    });
    return points;
}

bool decodeImage(const char *text, int nImageTypeID, const QString &path)
{
    const size_t length = std::strlen(text);
    if (length > kLongestPiece * 31) // more than a QByteArray holds
        return false;
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromRawData(text, static_cast<int>(length)));
    const QImage image = imageloader::loaded(bytes, nImageTypeID);
    if (image.isNull())
        return false;
    ReplacedFile file(path);
    return file.isOpen() && image.save(&file, base64text::formatName(nImageTypeID)) && file.commit();
}

int field(const _POINTDATA &point, int nTypeID)
{
    switch (nTypeID) {
    case INKDATATYPE_X:
        return point.nX;
    case INKDATATYPE_Y:
        return point.nY;
    case INKDATATYPE_STROKEEND: {
        // A record may hold any byte here. Return it unchanged, and without reading it as a bool, which would be
        // undefined.
        unsigned char strokeEnd = 0;
        std::memcpy(&strokeEnd, reinterpret_cast<const char *>(&point) + offsetof(_POINTDATA, bStrokeEnd), 1);
        return strokeEnd;
    }
    default:
        return ARI_INK_EMPTY;
    }
}

} // namespace inkrecord
