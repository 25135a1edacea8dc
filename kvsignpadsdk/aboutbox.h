/// @file
/// The library's name, version and maker, as text and as a dialog.
#ifndef ABOUTBOX_H
#define ABOUTBOX_H

class QWidget;

namespace aboutbox {

/// Shows the modal dialog and returns when the user closes it. Returns at once in a process that cannot have widgets.
void show(QWidget *pParent);

/// Writes the text with its zero, 128 bytes at most.
void writeText(char *pOutput);

} // namespace aboutbox

#endif
