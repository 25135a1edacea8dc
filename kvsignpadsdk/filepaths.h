/// @file
/// File paths as callers give them.
#ifndef FILEPATHS_H
#define FILEPATHS_H

#include <QByteArray>
#include <QString>

namespace filepaths {

/// A wide path, one code point per wchar_t. Null for a null pointer or a text with anything that is no character.
QString fromWide(const wchar_t *pImageFilePath);

/// The path as the system's functions take it: UTF-8 in a process that never set a locale, else the locale's
/// encoding. Null where that cannot express it, so that no file of another name comes out.
QByteArray encoded(const QString &path);

} // namespace filepaths

#endif
