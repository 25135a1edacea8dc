#include "base64text.h"

#include "kvsignpadsdk_global.h"
#include "plainways.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace base64text {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The two characters of each 12-bit value: three bytes take two look-ups instead of four.
struct Pairs
{
    constexpr Pairs()
    {
        for (size_t i = 0; i < 4096; ++i) {
            text[i][0] = kAlphabet[i >> 6];
            text[i][1] = kAlphabet[i & 63];
        }
    }
    char text[4096][2] = {};
};
constexpr Pairs kPairs;

char *writeGroup(char *to, unsigned threeBytes)
{
    std::memcpy(to, kPairs.text[threeBytes >> 12], 2);
    std::memcpy(to + 2, kPairs.text[threeBytes & 4095], 2);
    return to + 4;
}

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

char *append(char *to, const void *bytes, size_t size)
{
    if (plainways::only) {
        const QByteArray text = QByteArray(static_cast<const char *>(bytes), static_cast<int>(size)).toBase64();
        return std::copy(text.begin(), text.end(), to);
    }
    const auto *from = static_cast<const unsigned char *>(bytes);
    for (; size >= 3; size -= 3, from += 3)
        to = writeGroup(to, static_cast<unsigned>(from[0] << 16 | from[1] << 8 | from[2]));
    if (size > 0) {
        to = writeGroup(to, static_cast<unsigned>(from[0] << 16 | (size == 2 ? from[1] << 8 : 0)));
        to[-1] = '=';
        if (size == 1)
            to[-2] = '=';
    }
    return to;
}

char *newText(const void *bytes, size_t size, size_t &length)
{
    length = (size + 2) / 3 * 4;
    char *text = new char[length + 1];
    *append(text, bytes, size) = '\0';
    return text;
}

// `put` writes the bytes to the end of the text's own buffer, and the text grows over them from the front. A group's
// four characters never reach the bytes of the next group, because the text ends where the bytes end.
char *newText(size_t size, const std::function<bool(char *to)> &put, size_t &length)
{
    length = (size + 2) / 3 * 4;
    std::unique_ptr<char[]> text(new char[length + 1]);
    char *bytes = text.get() + length - size;
    if (!put(bytes))
        return nullptr;
    *append(text.get(), bytes, size) = '\0';
    return text.release();
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
