#include "wholeimage.h"

#include "kvsignpadsdk_global.h"

#include <QtEndian>

#include <cstdlib>
#include <cstring>

namespace wholeimage {

namespace {

// Where the fields of a bitmap file's headers are.
constexpr int kPixelsAt = 10;
constexpr int kHeaderSize = 14;
constexpr int kWidth = 18;
constexpr int kHeight = 22;
constexpr int kBits = 28;
constexpr int kCompression = 30;
constexpr int kPackedSize = 34;
constexpr int kHeadersEnd = 54;

// The oldest header has short fields, one after the other.
constexpr quint32 kOldHeader = 12;
constexpr int kOldHeight = 20;
constexpr int kOldBits = 24;
constexpr int kOldHeadersEnd = 26;

template <class T>
T field(const QByteArray &bytes, int at)
{
    return qFromLittleEndian<T>(bytes.constData() + at);
}

bool holds(const QByteArray &bytes, qint64 width, qint64 height, qint64 bits)
{
    const qint64 line = (width * bits + 31) / 32 * 4;
    const qint64 lines = std::llabs(height);
    const qint64 left = bytes.size() - qint64{field<quint32>(bytes, kPixelsAt)};
    return line <= left && lines <= left && line * lines <= left;
}

bool isWholeBitmap(const QByteArray &bytes)
{
    if (bytes.size() < kOldHeadersEnd)
        return false;
    if (field<quint32>(bytes, kHeaderSize) == kOldHeader)
        return holds(
            bytes, field<quint16>(bytes, kWidth), field<quint16>(bytes, kOldHeight), field<quint16>(bytes, kOldBits));
    if (bytes.size() < kHeadersEnd)
        return false;
    const auto compression = field<quint32>(bytes, kCompression);
    if (compression == 1 || compression == 2)
        return bytes.size() >= qint64{field<quint32>(bytes, kPixelsAt)} + field<quint32>(bytes, kPackedSize);
    return holds(bytes, field<qint32>(bytes, kWidth), field<qint32>(bytes, kHeight), field<quint16>(bytes, kBits));
}

// Whole when the end marker follows the last scan.
bool isWholeJpeg(const QByteArray &bytes)
{
    return bytes.lastIndexOf("\xff\xd9") > bytes.lastIndexOf("\xff\xda");
}

// Whole when the chunks, each with its length in front and 8 bytes of name and check besides, lead to the last one.
bool isWholePng(const QByteArray &bytes)
{
    for (qint64 at = 8; at + 12 <= bytes.size();) {
        const char *chunk = bytes.constData() + at;
        at += 12 + qint64{qFromBigEndian<quint32>(chunk)};
        if (std::memcmp(chunk + 4, "IEND", 4) == 0)
            return at <= bytes.size();
    }
    return false;
}

} // namespace

bool isWhole(const QByteArray &bytes, int nImageTypeID)
{
    switch (nImageTypeID) {
    case EBITI_BITMAP:
        return isWholeBitmap(bytes);
    case EBITI_JPEG:
        return isWholeJpeg(bytes);
    case EBITI_PNG:
        return isWholePng(bytes);
    default:
        return true;
    }
}

} // namespace wholeimage
