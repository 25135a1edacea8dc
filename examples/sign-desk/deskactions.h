/// @file
/// What the clerk can do, as menu items with their shortcuts.
#ifndef DESKACTIONS_H
#define DESKACTIONS_H

#include "counter.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

namespace signdesk {

class DeskActions : public QObject
{
    Q_OBJECT
public:
    /// Makes the window's menus.
    explicit DeskActions(QMainWindow &window);

    /// Enables what makes sense now.
    void follow(const Counter &counter, bool hasFingerprintSensor);

    /// Offers these documents to be opened again.
    void showRecent(const QStringList &paths);

    QAction *open;
    QMenu *recent;
    QAction *exportSignature;
    QAction *exportFingerprint;
    QAction *savePage;
    QAction *print;
    QAction *quit;
    QAction *start;
    QAction *confirm;
    QAction *clear;
    QAction *cancel;
    QAction *undo;
    QAction *done;
    QAction *signatory;
    QAction *verify;
    QAction *zoomIn;
    QAction *zoomOut;
    QAction *fitWidth;
    QAction *nextPage;
    QAction *previousPage;
    QAction *goToPage;
    QAction *fieldHere;
    QAction *find;
    QAction *findNext;
    QAction *findPrevious;
    QAction *thumbnails;
    QAction *aboutDesk;
    QAction *aboutLibrary;

signals:
    void recentChosen(const QString &path);

private:
    QAction *make(const QString &text, const char *shortcut, const QString &statusTip);
    void makeFileActions();
    void makeSignatureActions();
    void makeViewActions();
    void makeOtherActions();
    void makeMenus(QMainWindow &window);
};

} // namespace signdesk

#endif
