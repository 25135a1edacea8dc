/// @file
/// Keeps ink that was just captured when a later step fails: it is written to a file, from which one can sign again.
#ifndef KEPTINK_H
#define KEPTINK_H

#include <QByteArray>
#include <QString>

#include <functional>

/// Does the work. If it fails, writes the record beside the output, as OUTPUT.ink or, where that exists, OUTPUT-2.ink
/// and so on, readable by the owner alone (mode 0600). The failure's message then names the file.
/// @param record the library's text of the ink
/// @param output the absolute path of the file that was to be signed
/// @throws Failure whatever work throws
void keepingInk(const QByteArray &record, const QString &output, const std::function<void()> &work);

#endif
