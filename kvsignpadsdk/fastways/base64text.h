/// @file
/// Base64 texts as they are handed to callers, and back.
#ifndef BASE64TEXT_H
#define BASE64TEXT_H

#include <QByteArray>

#include <cstddef>
#include <exception>
#include <functional>

namespace base64text {

/// Qt's name of an image type of the Base64 functions; null for any other type.
const char *formatName(int nImageTypeID);

/// Writes the padded Base64 text of the bytes to `to`, without a terminating zero, and returns its end.
char *append(char *to, const void *bytes, size_t size);

/// A new zero-terminated text (array new) of any number of bytes, and its length without the zero.
char *newText(const void *bytes, size_t size, size_t &length);

/// The text of `size` bytes that `put` writes to the given address, so that no second buffer is needed. Null when `put`
/// returns false.
char *newText(size_t size, const std::function<bool(char *to)> &put, size_t &length);

char *newText(const QByteArray &bytes, int *length = nullptr);

/// The text of the bytes that `make` returns, or an empty text when it throws, above all for lack of memory.
template <class Make>
char *newTextOf(Make make)
{
    try {
        return newText(make());
    } catch (const std::exception &) {
        return newText(QByteArray());
    }
}

} // namespace base64text

#endif
