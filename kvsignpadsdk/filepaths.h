/// @file
/// File paths as callers give them.
#ifndef FILEPATHS_H
#define FILEPATHS_H

#include <QByteArray>
#include <QString>

namespace filepaths {

/// A wide path, one code point per wchar_t. Null for a null pointer, or when a value is not a Unicode character.
QString fromWide(const wchar_t *pImageFilePath);

/// The path for the system's functions: in the locale's encoding, or in UTF-8 when the process never set a locale. Null
/// when the encoding cannot express it, rather than the name of another file.
QByteArray inLocale(const QString &path);

} // namespace filepaths

#endif
