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

/// Throws a Failure when something that was printed did not arrive, say, because the disk is full.
void flushOutput();

/// A number with blanks between groups of three digits, easier to read.
QString grouped(qint64 number);

#endif
