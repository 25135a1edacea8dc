/// @file
/// What the clerk can do, as menu items with their shortcuts.
#ifndef DESKACTIONS_H
#define DESKACTIONS_H

#include "signing.h"

#include <QAction>
#include <QMainWindow>

namespace signdesk {

class DeskActions : public QObject
{
    Q_OBJECT
public:
    /// Makes the window's menus.
    explicit DeskActions(QMainWindow &window);

    /// Enables what makes sense in this state.
    void follow(SigningState state, bool hasFingerprintSensor);

    QAction *open;
    QAction *exportSignature;
    QAction *exportFingerprint;
    QAction *savePage;
    QAction *print;
    QAction *quit;
    QAction *start;
    QAction *confirm;
    QAction *clear;
    QAction *cancel;
    QAction *zoomIn;
    QAction *zoomOut;
    QAction *fitWidth;
    QAction *aboutDesk;
    QAction *aboutLibrary;

private:
    QAction *make(const QString &text, const char *shortcut, const QString &statusTip);
    void makeFileActions();
    void makeSignatureActions();
    void makeOtherActions();
    void makeMenus(QMainWindow &window);
};

} // namespace signdesk

#endif
