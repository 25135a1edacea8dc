/// @file
/// What went wrong, in the program's own words.
#ifndef TROUBLE_H
#define TROUBLE_H

#include <QString>

class QWidget;

namespace signdesk {

/// Thrown when something cannot be done. Nothing is lost by it.
struct Trouble
{
    QString what;
    QString cure; ///< what the user can do about it
};

/// Shows it, modal, until the user has read it.
void showTrouble(QWidget *parent, const Trouble &trouble);

} // namespace signdesk

#endif
