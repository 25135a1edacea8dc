/// @file
/// Results on standard output.
#ifndef TERMINAL_H
#define TERMINAL_H

#include <QJsonObject>
#include <QString>

/// Prints a line.
void say(const QString &line);

/// Prints a result as JSON.
void sayJson(const QJsonObject &result);

/// The same in one line.
void sayJsonLine(const QJsonObject &result);

/// Flushes standard output. Throws a Failure when something printed could not be written, for example to a full disk.
void flushOutput();

/// The number with blanks between groups of three digits.
QString grouped(qint64 number);

#endif
