/// @file
/// Passwords: from a file or asked for on the terminal, never from the command line.
#ifndef PASSWORDS_H
#define PASSWORDS_H

#include "commandline.h"

#include <QByteArray>

inline constexpr Option kDocumentPasswordOption{"document-password-file", "FILE",
    "A file whose first line is the password of an encrypted document.", nullptr, nullptr};

/// The first line of the file that the option names. Without the option it is asked for at the terminal.
/// @param what what the password is for, in the prompt
/// @throws Failure when there is neither
QByteArray passwordOf(const QString &what, const Arguments &arguments, const Option &fileOption);

/// The first line of the option's file; empty without the option.
QByteArray documentPassword(const Arguments &arguments);

#endif
