#include "deskactions.h"

#include <QDir>
#include <QFileInfo>
#include <QMenuBar>

namespace signdesk {

DeskActions::DeskActions(QMainWindow &window)
    : QObject(&window)
{
    makeFileActions();
    makeSignatureActions();
    makeViewActions();
    makeOtherActions();
    makeMenus(window);
}

// Shortcuts must not be keys that text fields handle themselves, on X11 also Ctrl+E and Ctrl+Backspace.
QAction *DeskActions::make(const QString &text, const char *shortcut, const QString &statusTip)
{
    auto *const action = new QAction(text, this);
    action->setShortcut(QKeySequence(QLatin1String(shortcut), QKeySequence::PortableText));
    action->setStatusTip(statusTip);
    return action;
}

void DeskActions::makeFileActions()
{
    open = make(tr("&Open page..."), "Ctrl+O", tr("Choose the PDF or picture to be signed"));
    savePage = make(tr("&Save signed page..."), "Ctrl+S", tr("Write the page with the signature on it, as PDF or PNG"));
    exportSignature = make(
        tr("&Export signature..."), "Ctrl+Shift+S", tr("Write the signature alone, as PNG, SVG, PDF, JPEG or BMP"));
    exportFingerprint = make(tr("Export &fingerprint..."), "Ctrl+Shift+F", tr("Write the fingerprint alone, as PNG"));
    print = make(tr("&Print..."), "Ctrl+P", tr("Print the page with the signature on it"));
    quit = make(tr("&Quit"), "Ctrl+Q", tr("Close the window"));
    quit->setMenuRole(QAction::QuitRole);
}

void DeskActions::makeSignatureActions()
{
    start = make(tr("&Start signing"), "F2", tr("Open the pad, so that the signer can write"));
    confirm = make(tr("&Confirm"), "Ctrl+Return",
        tr("Accept the signature as it is, as the signer's tap on the pad's confirm button does"));
    clear = make(tr("C&lear"), "F4", tr("Empty the field, to be signed anew"));
    undo = make(tr("&Undo signature"), "F8", tr("Take the last signature that is not saved from the document"));
    done = make(tr("&Done, next customer"), "F9", tr("End with this customer: show the document as it was opened"));
    signatory = make(tr("Di&gital signature..."), "", tr("Choose the certificate that signatures are made with"));
    verify = make(tr("C&heck digital signatures..."), "", tr("Say what the document's digital signatures are worth"));
    cancel = make(tr("C&ancel"), "Shift+Esc", tr("Give up this signature and close the pad"));
}

void DeskActions::makeViewActions()
{
    zoomIn = make(tr("Zoom &in"), "Ctrl++", tr("Show the page larger"));
    zoomOut = make(tr("Zoom &out"), "Ctrl+-", tr("Show the page smaller"));
    fitWidth = make(tr("&Fit width"), "Ctrl+0", tr("Show the page as wide as the window"));
    nextPage = make(tr("&Next page"), "Ctrl+PgDown", tr("Show the next page; the signature's field stays"));
    previousPage = make(tr("&Previous page"), "Ctrl+PgUp", tr("Show the page before; the signature's field stays"));
    goToPage = make(tr("&Go to page"), "Ctrl+G", tr("Type the number of the page to be shown"));
    fieldHere = make(tr("&Signature on this page"), "F6", tr("Move the signature's field to the page that is shown"));
    find = make(tr("Find &text"), "Ctrl+F", tr("Find a text on the pages"));
    findNext = make(tr("Find ne&xt"), "F3", tr("Show the next place with the text"));
    findPrevious = make(tr("Find pre&vious"), "Shift+F3", tr("Show the place with the text before this one"));
    thumbnails = make(tr("Page pict&ures"), "F7", tr("Show all pages as small pictures at the side"));
    thumbnails->setCheckable(true);
}

void DeskActions::makeOtherActions()
{
    aboutDesk = make(tr("&About Sign Desk"), "", tr("What this program is"));
    aboutLibrary = make(tr("About the pad &library"), "", tr("The version of the signature pads' library"));
}

void DeskActions::makeMenus(QMainWindow &window)
{
    QMenuBar &bar = *window.menuBar();
    bar.setAccessibleName(tr("Menu bar"));
    QMenu *const file = bar.addMenu(tr("&File"));
    file->addAction(open);
    recent = file->addMenu(tr("Open &again"));
    recent->setAccessibleName(tr("Open again"));
    file->addSeparator();
    file->addActions({savePage, exportSignature, exportFingerprint});
    file->addSeparator();
    file->addAction(print);
    file->addSeparator();
    file->addAction(quit);
    bar.addMenu(tr("&Signature"))->addActions({start, confirm, clear, cancel, undo, done, signatory, verify});
    QMenu *const view = bar.addMenu(tr("Vie&w"));
    view->addActions({zoomIn, zoomOut, fitWidth});
    view->addSeparator();
    view->addActions({nextPage, previousPage, goToPage, fieldHere});
    view->addSeparator();
    view->addActions({find, findNext, findPrevious});
    view->addSeparator();
    view->addAction(thumbnails);
    bar.addMenu(tr("&Help"))->addActions({aboutDesk, aboutLibrary});
}

void DeskActions::follow(const Counter &counter, bool hasFingerprintSensor)
{
    const SigningState state = counter.signing().state();
    const bool isOpen = state != SigningState::Closed;
    const bool isConfirmed = state == SigningState::Confirmed;
    start->setEnabled(!isOpen || isConfirmed);
    start->setStatusTip(isConfirmed ? tr("Keep this signature in the document, and let another one be written")
                                    : tr("Open the pad, so that the signer can write"));
    confirm->setEnabled(isOpen && !isConfirmed);
    clear->setEnabled(isOpen);
    cancel->setEnabled(isOpen);
    undo->setEnabled(counter.canUndo());
    signatory->setEnabled(!isOpen || isConfirmed);
    fieldHere->setEnabled(!counter.signing().hasSignature());
    verify->setEnabled(counter.document().pages().isPdf());
    done->setEnabled(isOpen || counter.document().added() > 0);
    for (QAction *action : {savePage, print})
        action->setEnabled(counter.hasResult());
    for (QAction *action : {exportSignature, exportFingerprint})
        action->setEnabled(isConfirmed);
    exportFingerprint->setVisible(hasFingerprintSensor);
}

void DeskActions::showRecent(const QStringList &paths)
{
    recent->clear();
    recent->setEnabled(!paths.isEmpty());
    for (int i = 0; i < paths.size(); ++i) {
        const QString name = QFileInfo(paths[i]).fileName().replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction *const action = recent->addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(name));
        action->setStatusTip(QDir::toNativeSeparators(paths[i]));
        action->setToolTip(action->statusTip());
        connect(action, &QAction::triggered, this, [this, path = paths[i]] { emit recentChosen(path); });
    }
}

} // namespace signdesk
