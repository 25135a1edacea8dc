/// @file
/// Ink that somebody signed just now outlives a step that fails: it is put into a file, from which one can sign again.
#ifndef KEPTINK_H
#define KEPTINK_H

#include <QByteArray>
#include <QString>

#include <functional>

/// Does work. If it fails, writes the record beside the output, as OUTPUT.ink or, where that exists, OUTPUT-2.ink and
/// so on, for the owner alone (mode 0600), and the failure's message says so.
/// @param record the library's text of the ink
/// @param output the absolute path of the file that was to be signed
/// @throws Failure whatever work throws
void keepingInk(const QByteArray &record, const QString &output, const std::function<void()> &work);

#endif
