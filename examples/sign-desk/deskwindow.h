/// @file
/// The window of the desk: the page at the left, what the clerk sets at the right.
#ifndef DESKWINDOW_H
#define DESKWINDOW_H

#include "deskactions.h"
#include "deskfiles.h"
#include "deskstatus.h"
#include "fingerprintplacing.h"
#include "outputpanel.h"
#include "padpanel.h"
#include "pageview.h"
#include "penpanel.h"
#include "placepanel.h"
#include "signing.h"

#include <QMainWindow>

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
    void acceptAnyDriver() { m_session.acceptAnyDriver(); }

    /// Opens the pad, as the button does.
    void start();

    SigningState state() const { return m_signing.state(); }
    bool isPadAway() const { return m_signing.isPadAway(); }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectActions();
    void connectPanels();
    void connectSigning();

    void chooseModel();
    void chooseFingerprintPlace();
    void showPages(std::unique_ptr<Pages> pages, const QString &title);
    void clear();
    void cancel();
    void cancelOnPad();
    void end(const QString &message);
    void follow(SigningState state);
    void showRates(int points);
    void showKept();
    bool mayDiscard();
    bool mayLeave();
    void followPad();
    QString noteOnPad() const;
    void confirmDoubtful(int points);
    SignedDocument signedDocument();
    void savePage();
    void print();
    void keep(const QString &message);
    void exportFingerprint();
    void aboutDesk();

    PadSession m_session;
    Signing m_signing;
    Rates m_rates;
    std::unique_ptr<Pages> m_pages;
    DeskActions m_actions;
    DeskFiles m_files;
    PageView *m_view;
    FingerprintPlacing m_fingerprint;
    PadPanel *m_padPanel;
    PenPanel *m_penPanel;
    PlacePanel *m_placePanel;
    OutputPanel *m_outputPanel;
    DeskStatus *m_status;
    bool m_isAsking = false; ///< whether to confirm although strokes may be missing
};

} // namespace signdesk

#endif
