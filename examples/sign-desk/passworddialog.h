/// @file
/// Asks for a password or a PIN.
#ifndef PASSWORDDIALOG_H
#define PASSWORDDIALOG_H

#include <QByteArray>
#include <QString>

#include <optional>

class QWidget;

namespace signdesk {

/// Nothing when the clerk cancels.
/// @param what is asked for, as a sentence
/// @param complaint why it is asked for again; empty at first
std::optional<QByteArray> askForPassword(QWidget *parent, const QString &what, const QString &complaint);

} // namespace signdesk

#endif
