/// @file
/// A second, strict implementation of Base64 (RFC 4648): only the alphabet, and padding only at the end.
#ifndef TEST_BASE64_H
#define TEST_BASE64_H

#include <QByteArray>

#include <array>
#include <optional>

namespace base64 {

inline constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline QByteArray encoded(const QByteArray &bytes)
{
    QByteArray text((bytes.size() + 2) / 3 * 4, Qt::Uninitialized);
    char *next = text.data();
    const char *const begin = bytes.constData();
    const int size = bytes.size();
    for (int i = 0; i < size; i += 3) {
        const auto byte = [&](int n) { return n < size ? static_cast<unsigned char>(begin[n]) : 0u; };
        const unsigned group = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        *next++ = kAlphabet[group >> 18];
        *next++ = kAlphabet[group >> 12 & 63];
        *next++ = i + 1 < size ? kAlphabet[group >> 6 & 63] : '=';
        *next++ = i + 2 < size ? kAlphabet[group & 63] : '=';
    }
    return text;
}

/// By character: -1 for what is not in the alphabet. A table, because this runs over megabytes in unoptimised tests.
inline constexpr auto kValues = [] {
    std::array<signed char, 256> values{};
    for (signed char &value : values)
        value = -1;
    for (signed char i = 0; i < 64; ++i)
        values[static_cast<unsigned char>(kAlphabet[i])] = i;
    return values;
}();

/// Returns nothing for a text with another character, padding elsewhere, or a length that is not a multiple of 4.
inline std::optional<QByteArray> decoded(const QByteArray &text)
{
    if (text.size() % 4 != 0)
        return {};
    int padding = 0;
    while (padding < 2 && text.size() > padding && text[text.size() - 1 - padding] == '=')
        ++padding;
    QByteArray bytes(text.size() / 4 * 3, Qt::Uninitialized); // filling megabytes is slow in unoptimised tests
    char *next = bytes.data();
    const char *const begin = text.constData();
    const int size = text.size(), whole = size - padding;
    const signed char *const values = kValues.data();
    unsigned group = 0;
    for (int i = 0; i < size; ++i) {
        const int value = values[static_cast<unsigned char>(begin[i])];
        if (value < 0 && i < whole)
            return {};
        group = group << 6 | static_cast<unsigned>(value < 0 ? 0 : value);
        if (i % 4 == 3) {
            *next++ = static_cast<char>(group >> 16 & 255);
            *next++ = static_cast<char>(group >> 8 & 255);
            *next++ = static_cast<char>(group & 255);
            group = 0;
        }
    }
    bytes.chop(padding);
    return bytes;
}

} // namespace base64

#endif
