/// @file
/// Base64 of RFC 4648 written a second time, strictly: nothing but the alphabet and the padding at its place.
#ifndef TEST_BASE64_H
#define TEST_BASE64_H

#include <QByteArray>

#include <cstring>
#include <optional>

namespace base64 {

inline constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

inline QByteArray encoded(const QByteArray &bytes)
{
    QByteArray text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (int i = 0; i < bytes.size(); i += 3) {
        const auto byte = [&](int n) { return n < bytes.size() ? static_cast<unsigned char>(bytes[n]) : 0u; };
        const unsigned group = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        text += kAlphabet[group >> 18];
        text += kAlphabet[group >> 12 & 63];
        text += i + 1 < bytes.size() ? kAlphabet[group >> 6 & 63] : '=';
        text += i + 2 < bytes.size() ? kAlphabet[group & 63] : '=';
    }
    return text;
}

/// Nothing for a text with any other character, with padding elsewhere, or of a length that is no multiple of 4.
inline std::optional<QByteArray> decoded(const QByteArray &text)
{
    if (text.size() % 4 != 0)
        return {};
    int padding = 0;
    while (padding < 2 && text.size() > padding && text[text.size() - 1 - padding] == '=')
        ++padding;
    QByteArray bytes;
    bytes.reserve(text.size() / 4 * 3);
    unsigned group = 0;
    for (int i = 0; i < text.size(); ++i) {
        const char *place = text[i] == '\0' ? nullptr : std::strchr(kAlphabet, text[i]);
        if (place == nullptr && i < text.size() - padding)
            return {};
        group = group << 6 | (place == nullptr ? 0u : static_cast<unsigned>(place - kAlphabet));
        if (i % 4 == 3) {
            for (const int shift : {16, 8, 0})
                bytes += static_cast<char>(group >> shift & 255);
            group = 0;
        }
    }
    bytes.chop(padding);
    return bytes;
}

} // namespace base64

#endif
