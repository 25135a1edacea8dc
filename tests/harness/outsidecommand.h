/// @file
/// Runs commands as somebody at a shell would, and reads the repository's documents.
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

/// Runs a program in a directory, with the test's environment and these variables. A null value removes a variable.
CommandResult runProgram(
    const QStringList &command, const QString &directory, const QMap<QString, QString> &environment = {});

/// The content of a file. Fails the test when the file does not exist.
QByteArray contentOf(const QString &path);

/// The text of a document between a line and the next of the same rank of heading.
QString sectionOf(const QString &document, const QString &heading);

/// The first fenced block of that language, and the first indented block's lines.
QString fencedBlock(const QString &text, const QString &language);
QStringList indentedBlock(const QString &text);

/// Number of points that a recording stores: each pen down, each move of a stroke, and one for each pen up.
int storedPoints(const QString &recording);

#endif
