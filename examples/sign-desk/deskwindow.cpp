#include "deskwindow.h"

#include "modelrules.h"
#include "sidepanel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

namespace signdesk {

namespace {

constexpr int kInkEvery = 20; ///< milliseconds

} // namespace

DeskWindow::DeskWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_actions(*this)
    , m_files(*this)
    , m_search(m_renderer, this)
    , m_view(new PageView(m_renderer, m_search.found()))
    , m_thumbnails(new ThumbnailList(m_renderer))
    , m_findBar(new FindBar(m_search))
    , m_pageBox(new PageBox)
    , m_padPanel(new PadPanel(m_actions))
    , m_penPanel(new PenPanel)
    , m_placePanel(new PlacePanel)
    , m_signatoryPanel(new SignatoryPanel(m_actions))
    , m_outputPanel(new OutputPanel(m_actions))
    , m_status(new DeskStatus(*statusBar()))
{
    layOut();
    connectFileActions();
    connectOtherActions();
    connectReading();
    connectFinding();
    connectPanels();
    connectCounter();
    m_rates.watch(&m_view->inkView());
    m_inkTimer.setInterval(kInkEvery);
    connect(&m_inkTimer, &QTimer::timeout, this, &DeskWindow::lookAtInk);
    m_actions.showRecent(m_settings.recentDocuments());
    chooseModel();
    showDocument();
    placeField();
    follow();
    showRates(0);
    m_status->note(tr("Open the page to be signed, or start signing on the blank sheet."));
}

DeskWindow::~DeskWindow()
{
    m_rates.watch(nullptr);
}

void DeskWindow::layOut()
{
    m_placePanel->setHasFingerprintSensor(true); // so that the side panel gets its final width
    auto *const centre = new QWidget;
    auto *const layout = new QHBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *const left = new QVBoxLayout;
    left->setSpacing(0);
    left->addWidget(m_view, 1);
    left->addWidget(m_findBar);
    left->addWidget(m_status->line());
    layout->addWidget(m_thumbnails);
    layout->addLayout(left, 1);
    layout->addWidget(new SidePanel(
        {m_padPanel, new ResultPanel(m_actions), m_placePanel, m_signatoryPanel, m_penPanel, m_outputPanel}));
    setCentralWidget(centre);
    statusBar()->insertPermanentWidget(0, m_pageBox);
    const QSize room = QGuiApplication::primaryScreen()->availableSize() - QSize(16, 48); // less a frame and a title
    resize(QSize(1120, 800).boundedTo(room));
}

void DeskWindow::connectFileActions()
{
    const auto on = [this](QAction *action, auto work) { connect(action, &QAction::triggered, this, work); };
    on(m_actions.open, [this] {
        if (!mayLeave())
            return;
        const QString path = m_files.askForPage();
        if (!path.isEmpty() && openPage(path))
            offerLeft(path);
    });
    connect(&m_actions, &DeskActions::recentChosen, this, [this](const QString &path) {
        if (mayLeave() && openPage(path))
            offerLeft(path);
    });
    on(m_actions.savePage, [this] { savePage(); });
    on(m_actions.exportSignature, [this] { exportSignature(); });
    on(m_actions.exportFingerprint, [this] { exportFingerprint(); });
    on(m_actions.print, [this] { print(); });
    on(m_actions.quit, [this] { close(); });
}

void DeskWindow::connectOtherActions()
{
    const auto on = [this](QAction *action, auto work) { connect(action, &QAction::triggered, this, work); };
    on(m_actions.start, [this] { start(); });
    on(m_actions.confirm, [this] { m_counter.signing().confirm(); });
    on(m_actions.clear, [this] { clear(); });
    on(m_actions.cancel, [this] { cancel(); });
    on(m_actions.undo, [this] { undo(); });
    on(m_actions.done, [this] { done(); });
    on(m_actions.signatory, [this] { chooseSignatory(); });
    on(m_actions.verify, [this] { verify(); });
    on(m_actions.aboutDesk, [this] { aboutDesk(); });
    on(m_actions.aboutLibrary, [this] { m_padPanel->model().AboutBox(this); });
}

void DeskWindow::connectPanels()
{
    connect(m_padPanel, &PadPanel::modelChanged, this, &DeskWindow::chooseModel);
    connect(m_penPanel, &PenPanel::penChanged, this, [this] { m_counter.session().setPen(m_penPanel->pen()); });
    connect(m_placePanel, &PlacePanel::formFieldChosen, this, &DeskWindow::chooseFormField);
    connect(m_placePanel, &PlacePanel::pageChosen, this, [this](int page) {
        m_view->setField(page, m_view->field());
        m_view->showField();
    });
    connect(m_placePanel, &PlacePanel::fieldChosen, this, [this](const QRectF &field) {
        m_view->setField(field);
        showPlace();
        m_view->showField();
    });
    connect(m_placePanel, &PlacePanel::fingerprintPlaceChosen, this, &DeskWindow::chooseFingerprintPlace);
}

void DeskWindow::connectCounter()
{
    Signing &signing = m_counter.signing();
    connect(&signing, &Signing::stateChanged, this, [this](SigningState state) {
        follow();
        noteState(state);
    });
    connect(&signing, &Signing::looked, this, &DeskWindow::showRates);
    connect(&m_counter, &Counter::keptChanged, this, &DeskWindow::follow);
    connect(&m_counter, &Counter::documentChanged, this, &DeskWindow::showDocument);
    connect(&signing, &Signing::cancelledOnPad, this, &DeskWindow::cancelOnPad);
    connect(&signing, &Signing::padAwayChanged, this, &DeskWindow::followPad);
    connect(&signing, &Signing::doubted, this, &DeskWindow::confirmDoubtful);
    connect(&signing, &Signing::confirmedWithoutInk, this,
        [this] { m_status->note(tr("Nothing is written yet, so there is nothing to confirm.")); });
}

void DeskWindow::chooseModel()
{
    m_view->setProportions(proportions(m_padPanel->model().row));
    m_placePanel->setHasFingerprintSensor(m_padPanel->model().row.hasFingerprintSensor);
    follow();
}

void DeskWindow::chooseFingerprintPlace()
{
    if (m_counter.signing().hasSignature())
        return;
    m_counter.setFingerprintPlace(m_placePanel->fingerprintPlace());
    showPlace();
}

void DeskWindow::follow()
{
    const bool hasInk = m_counter.signing().hasSignature();
    m_actions.follow(m_counter, m_padPanel->model().row.hasFingerprintSensor);
    m_padPanel->follow(state(), isPadAway());
    m_placePanel->setLocked(hasInk);
    m_view->setPageLocked(hasInk);
    m_thumbnails->setSigned(m_counter.signedPages());
    m_penPanel->setHasInk(hasInk);
    setWindowModified(!m_counter.isKept());
}

void DeskWindow::showRates(int points)
{
    m_rates.look(points);
    m_status->show(points, m_rates);
    m_view->setFingerprint(m_counter.printPlace(), m_counter.print());
}

void DeskWindow::lookAtInk()
{
    const bool isGrown = m_counter.look();
    m_view->setInk(m_counter.ink(), isGrown);
}

/// Asks the clerk, unless everything confirmed was saved.
bool DeskWindow::mayDiscard()
{
    return m_counter.signing().isKept() || m_files.mayGo();
}

/// Asks the clerk before unsaved ink is lost with the page, confirmed or not.
bool DeskWindow::mayLeave()
{
    const bool mayGo = !m_counter.isUnsaved() || m_files.mayGo();
    m_hadUnsaved = m_counter.isUnsaved();
    m_pointsThen = m_counter.session().points();
    return mayGo;
}

/// The same again, when something was written or confirmed since: the signer does not wait for the clerk's dialogs.
bool DeskWindow::mayStillLeave()
{
    const bool isNew = !m_hadUnsaved || m_counter.session().points() != m_pointsThen;
    return !isNew || mayLeave();
}

void DeskWindow::aboutDesk()
{
    QMessageBox::about(this, tr("About Sign Desk"),
        tr("Sign Desk lets a customer sign a page on a signature pad, and saves or prints it with the signature."));
}

void DeskWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayLeave());
    if (event->isAccepted())
        discardKept();
}

} // namespace signdesk
