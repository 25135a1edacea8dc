/// @file
/// Which pages may ask for the pad: lists of origins in files that only their owner can write.
#ifndef ORIGINS_H
#define ORIGINS_H

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>

namespace bridge {

/// An origin as a browser sends it ("https://shop.example", "http://127.0.0.1:8080"); no path, no wildcard, no port
/// that the scheme has anyway. Empty for anything else.
QByteArray checkedOrigin(const QByteArray &text);

/// Why a file that decides who comes in is passed over, in a sentence: somebody besides the user and root could write
/// it or put another in its place. Empty when nobody could.
QString weaknessOf(const QString &path);

struct OriginLists
{
    QSet<QByteArray> origins;
    QStringList complaints; ///< files and lines that were passed over, for the journal
};

/// Reads every file of the folders, an origin a line, "#" begins a comment. A file that has a weakness is passed over.
OriginLists readOrigins(const QStringList &folders);

/// The administrator's and the user's own folder.
QStringList originFolders();

} // namespace bridge

#endif
