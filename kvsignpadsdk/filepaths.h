/// @file
/// File paths as callers give them, and opening files by them.
#ifndef FILEPATHS_H
#define FILEPATHS_H

#include <QByteArray>
#include <QFile>
#include <QString>

namespace filepaths {

/// A wide path, one code point per wchar_t. Null for a null pointer or a text with anything that is no character.
QString fromWide(const wchar_t *pImageFilePath);

/// The path as the system's functions take it: UTF-8 in a process that never set a locale, else the locale's
/// encoding. Null where that cannot express it, so that no file of another name comes out.
QByteArray encoded(const QString &path);

/// Opens (creates, empties) the file for writing only; false with the file closed when that cannot be done.
bool openForWriting(QFile &file, const QString &path);

/// Writes all bytes to the file, in place of what it held. After a failure a file that was not there before is gone.
bool write(const QString &path, const QByteArray &bytes);

} // namespace filepaths

#endif
