#include "filepaths.h"

#include <QVector>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>

namespace filepaths {

namespace {

static_assert(sizeof(wchar_t) == sizeof(uint), "wide paths are UCS-4");

bool isCharacter(uint code)
{
    return code <= QChar::LastValidCodePoint && !QChar::isSurrogate(code);
}

bool hasNoLocale()
{
    const char *locale = std::setlocale(LC_CTYPE, nullptr); // "C" for POSIX too
    return locale == nullptr || std::strcmp(locale, "C") == 0;
}

QByteArray byLocale(const QString &path)
{
    const std::wstring wide = path.toStdWString();
    const size_t length = std::wcstombs(nullptr, wide.c_str(), 0);
    if (length == static_cast<size_t>(-1))
        return {};
    QByteArray bytes(static_cast<int>(length), Qt::Uninitialized);
    std::wcstombs(bytes.data(), wide.c_str(), length);
    return bytes;
}

} // namespace

QString fromWide(const wchar_t *pImageFilePath)
{
    if (pImageFilePath == nullptr)
        return {};
    const auto *codes = reinterpret_cast<const uint *>(pImageFilePath);
    const size_t length = std::wcslen(pImageFilePath);
    for (size_t i = 0; i < length; ++i) {
        if (!isCharacter(codes[i]))
            return {};
    }
    return QString::fromUcs4(codes, static_cast<int>(length));
}

QByteArray inLocale(const QString &path)
{
    if (path.isEmpty() || !path.isValidUtf16() || path.contains(QChar(0)))
        return {};
    return hasNoLocale() ? path.toUtf8() : byLocale(path);
}

} // namespace filepaths
