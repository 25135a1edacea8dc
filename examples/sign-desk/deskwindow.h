/// @file
/// The window of the desk: the page at the left, what the clerk sets at the right.
#ifndef DESKWINDOW_H
#define DESKWINDOW_H

#include "counter.h"
#include "deskactions.h"
#include "deskfiles.h"
#include "desksettings.h"
#include "deskstatus.h"
#include "findbar.h"
#include "outputpanel.h"
#include "padpanel.h"
#include "pagebox.h"
#include "pageview.h"
#include "penpanel.h"
#include "placepanel.h"
#include "rates.h"
#include "safekeeping.h"
#include "signatorypanel.h"
#include "thumbnaillist.h"
#include "unsavedquestions.h"

#include <QMainWindow>
#include <QTimer>

namespace signdesk {

class DeskWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit DeskWindow(QWidget *parent = nullptr);
    ~DeskWindow() override;

    /// When the file cannot be read, tells the clerk why, keeps the present page and returns false.
    bool openPage(const QString &path);
    void setModel(const PadFamily &model) { m_padPanel->setModel(model); }
    void acceptAnyDriver() { m_counter.session().acceptAnyDriver(); }

    /// From now on, what is confirmed and not saved outlasts the program.
    void keepConfirmed();

    void discardKept();

    /// Offers to go on with what desks left that ended too soon: with all of it, or with what belongs to the document.
    /// True when it is in the window now.
    bool offerLeft(const QString &path = {});

    /// Opens the pad, as the button does.
    void start();

    SigningState state() const { return m_counter.signing().state(); }
    bool isDrawn() const { return m_view->isDrawn(); } ///< the pages in sight
    bool isPadAway() const { return m_counter.signing().isPadAway(); }

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void layOut();
    void connectFileActions();
    void connectOtherActions();
    void connectReading();
    void connectPanels();
    void connectCounter();

    void showPages(std::unique_ptr<Pages> pages);
    bool goOnWith(const LeftSignature &left);
    LeftAnswer openFor(const UnsavedSignature &left, std::unique_ptr<Pages> &pages);
    bool chooseSignatoryOf(const UnsavedSignature &left);

    void chooseModel();
    void chooseFingerprintPlace();
    void chooseFormField(const QString &name);
    void takePlace();
    void showPlace();
    void showDocument();
    void connectFinding();
    void renewPages();
    void forgetPages();
    void offerFields();
    void placeField();
    void placeNextField();
    void rememberPlace();
    void lookAtInk();
    bool mayStart();
    void clear();
    void cancel();
    void cancelOnPad();
    void undo();
    void done();
    void end(const QString &message);
    void follow();
    void noteState(SigningState state);
    void showRates(int points);
    bool mayDiscard();
    bool mayLeave();
    bool mayStillLeave();
    void followPad();
    void confirmDoubtful(int points);
    bool prepare();
    std::shared_ptr<const SignedDocument> result();
    bool chooseSignatory();
    void verify();
    void savePage();
    void print();
    void exportSignature();
    void exportFingerprint();
    void aboutDesk();
    QString openedFile() const;

    DeskSettings m_settings;
    Counter m_counter;
    Rates m_rates;
    DeskActions m_actions;
    DeskFiles m_files;
    PageRenderer m_renderer;
    TextSearch m_search;
    PageView *m_view;
    ThumbnailList *m_thumbnails;
    FindBar *m_findBar;
    PageBox *m_pageBox;
    PadPanel *m_padPanel;
    PenPanel *m_penPanel;
    PlacePanel *m_placePanel;
    SignatoryPanel *m_signatoryPanel;
    OutputPanel *m_outputPanel;
    DeskStatus *m_status;
    QTimer m_inkTimer;
    std::unique_ptr<SafeKeeping> m_keeping;
    bool m_hadUnsaved = false; ///< when the clerk was asked last whether to leave
    int m_pointsThen = 0;
    bool m_isAsking = false; ///< whether to confirm although strokes may be missing
};

} // namespace signdesk

#endif
