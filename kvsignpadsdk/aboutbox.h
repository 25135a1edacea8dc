/// @file
/// The library's name, version and maker, as text and as a dialog.
#ifndef ABOUTBOX_H
#define ABOUTBOX_H

class QWidget;

namespace aboutbox {

/// Shows the modal dialog; returns when the user has closed it, at once where there can be no dialog.
void show(QWidget *pParent);

/// Writes the text with its zero, 128 bytes at most.
void writeText(char *pOutput);

} // namespace aboutbox

#endif
