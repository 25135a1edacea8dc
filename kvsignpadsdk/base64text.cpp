#include "base64text.h"

#include "kvsignpadsdk_global.h"

#include <algorithm>
#include <cstring>

namespace base64text {

namespace {

// Whole groups of three bytes, small enough for Qt's int sizes.
constexpr size_t kPiece = size_t{3} << 24;

} // namespace

const char *formatName(int nImageTypeID)
{
    switch (nImageTypeID) {
    case EBITI_BITMAP:
        return "BMP";
    case EBITI_JPEG:
        return "JPG";
    case EBITI_PNG:
        return "PNG";
    default:
        return nullptr;
    }
}

char *newText(const void *bytes, size_t size, size_t &length)
{
    length = (size + 2) / 3 * 4;
    char *text = new char[length + 1];
    char *end = text;
    for (size_t done = 0; done < size; done += kPiece) {
        const size_t piece = std::min(kPiece, size - done);
        const QByteArray part =
            QByteArray::fromRawData(static_cast<const char *>(bytes) + done, static_cast<int>(piece)).toBase64();
        std::memcpy(end, part.constData(), static_cast<size_t>(part.size()));
        end += part.size();
    }
    *end = '\0';
    return text;
}

char *newText(const QByteArray &bytes, int *length)
{
    size_t textLength = 0;
    char *text = newText(bytes.constData(), static_cast<size_t>(bytes.size()), textLength);
    if (length != nullptr)
        *length = static_cast<int>(textLength);
    return text;
}

} // namespace base64text
