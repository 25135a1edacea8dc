/// @file
/// Runs commands as a person at a shell would, and reads what the repository's documents say.
#ifndef OUTSIDECOMMAND_H
#define OUTSIDECOMMAND_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <ostream>

struct CommandResult
{
    int exitCode; ///< -1: it did not start, crashed, or took too long
    QString output;
    QString errors;
};

void PrintTo(const CommandResult &result, std::ostream *out);

/// Runs a program in a directory, with these environment variables besides the test's own; null values take one away.
CommandResult runProgram(
    const QStringList &command, const QString &directory, const QMap<QString, QString> &environment = {});

/// The whole content of a file; fails the test when there is none.
QByteArray contentOf(const QString &path);

/// The text of a document between a line and the next of the same rank of heading.
QString sectionOf(const QString &document, const QString &heading);

/// The first fenced block of that language, and the first indented block's lines.
QString fencedBlock(const QString &text, const QString &language);
QStringList indentedBlock(const QString &text);

/// How many points a recording stores: each pen down, each move of a stroke, and one that closes a lifted stroke.
int storedPoints(const QString &recording);

#endif
