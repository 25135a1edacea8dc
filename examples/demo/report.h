/// @file
/// What the demo prints: a line that grows while a signature is written, and a table at the end.
#ifndef REPORT_H
#define REPORT_H

#include "capture.h"

#include <QString>
#include <QStringList>

#include <vector>

/// One line on the terminal, rewritten in place. If the output is not a terminal, only its last state is printed.
class ProgressLine
{
public:
    ProgressLine();
    void show(const QString &text);
    void finish(const QString &text);

private:
    bool m_inPlace;
};

QString captureText(const CaptureState &state);

/// Prints the rows under the titles in columns as wide as they need to be; numbers are set to the right.
void printTable(const QStringList &titles, const std::vector<QStringList> &rows);

#endif
