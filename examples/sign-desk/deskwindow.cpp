#include "deskwindow.h"

#include "modelrules.h"
#include "sidepanel.h"
#include "signfield.h"
#include "trouble.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QStatusBar>
#include <QVBoxLayout>

#include <optional>

namespace signdesk {

DeskWindow::DeskWindow(QWidget *parent)
    : QMainWindow(parent)
    , m_signing(m_session)
    , m_actions(*this)
    , m_files(*this)
    , m_view(new PageView)
    , m_fingerprint(m_session, m_view->sheet())
    , m_padPanel(new PadPanel(m_actions))
    , m_penPanel(new PenPanel)
    , m_placePanel(new PlacePanel)
    , m_outputPanel(new OutputPanel(m_actions))
    , m_status(new DeskStatus(*statusBar()))
{
    m_placePanel->setHasFingerprintSensor(true); // so that the side panel gets its final width
    auto *const centre = new QWidget;
    auto *const layout = new QHBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto *const left = new QVBoxLayout;
    left->setSpacing(0);
    left->addWidget(m_view, 1);
    left->addWidget(m_status->line());
    layout->addLayout(left, 1);
    layout->addWidget(new SidePanel({m_padPanel, m_penPanel, m_placePanel, m_outputPanel}));
    setCentralWidget(centre);
    connectActions();
    connectPanels();
    connectSigning();
    showPages(blankPages(), tr("blank sheet"));
    chooseModel();
    follow(SigningState::Closed);
    showRates(0);
    m_status->note(tr("Open the page to be signed, or start signing on the blank sheet."));
    resize(1120, 800);
}

DeskWindow::~DeskWindow()
{
    m_rates.watch(nullptr);
    m_fingerprint.end();
    m_session.close();
}

void DeskWindow::connectActions()
{
    const auto on = [this](QAction *action, auto work) { connect(action, &QAction::triggered, this, work); };
    on(m_actions.open, [this] {
        if (!mayLeave())
            return;
        const QString path = m_files.askForPage();
        if (!path.isEmpty())
            openPage(path);
    });
    on(m_actions.savePage, [this] { savePage(); });
    on(m_actions.exportSignature, [this] {
        if (m_files.exportSignature(m_session, m_outputPanel->options()))
            keep(tr("The signature is exported."));
    });
    on(m_actions.exportFingerprint, [this] { exportFingerprint(); });
    on(m_actions.print, [this] { print(); });
    on(m_actions.quit, [this] { close(); });
    on(m_actions.start, [this] { start(); });
    on(m_actions.confirm, [this] { m_signing.confirm(); });
    on(m_actions.clear, [this] { clear(); });
    on(m_actions.cancel, [this] { cancel(); });
    on(m_actions.zoomIn, [this] { m_view->zoomBy(1.25); });
    on(m_actions.zoomOut, [this] { m_view->zoomBy(0.8); });
    on(m_actions.fitWidth, [this] { m_view->fitWidth(); });
    on(m_actions.aboutDesk, [this] { aboutDesk(); });
    on(m_actions.aboutLibrary, [this] { m_padPanel->model().AboutBox(this); });
}

void DeskWindow::connectPanels()
{
    PageSheet &sheet = m_view->sheet();
    connect(m_padPanel, &PadPanel::modelChanged, this, &DeskWindow::chooseModel);
    connect(m_penPanel, &PenPanel::penChanged, this, [this] { m_session.setPen(m_penPanel->pen()); });
    connect(m_placePanel, &PlacePanel::pageChosen, this, [this](int page) { m_view->setPage(*m_pages, page); });
    connect(m_placePanel, &PlacePanel::fieldChosen, this, [this](const QRectF &field) {
        m_view->sheet().setField(field);
        m_placePanel->setField(m_view->sheet().field(), m_view->sheet().pageSize());
        m_view->showField();
    });
    connect(m_placePanel, &PlacePanel::fingerprintPlaceChosen, this, &DeskWindow::chooseFingerprintPlace);
    connect(&sheet, &PageSheet::fieldChanged, this,
        [this](const QRectF &field) { m_placePanel->setField(field, m_view->sheet().pageSize()); });
    connect(&sheet, &PageSheet::sizeChanged, this, &DeskWindow::chooseFingerprintPlace);
}

void DeskWindow::connectSigning()
{
    connect(&m_signing, &Signing::stateChanged, this, &DeskWindow::follow);
    connect(&m_signing, &Signing::looked, this, &DeskWindow::showRates);
    connect(&m_signing, &Signing::keptChanged, this, &DeskWindow::showKept);
    connect(&m_signing, &Signing::cancelledOnPad, this, &DeskWindow::cancelOnPad);
    connect(&m_signing, &Signing::padAwayChanged, this, &DeskWindow::followPad);
    connect(&m_signing, &Signing::doubted, this, &DeskWindow::confirmDoubtful);
    connect(&m_signing, &Signing::confirmedWithoutInk, this,
        [this] { m_status->note(tr("Nothing is written yet, so there is nothing to confirm.")); });
}

void DeskWindow::chooseModel()
{
    m_view->sheet().setProportions(proportions(m_padPanel->model().row));
    m_placePanel->setHasFingerprintSensor(m_padPanel->model().row.hasFingerprintSensor);
    m_actions.follow(m_signing.state(), m_padPanel->model().row.hasFingerprintSensor);
}

void DeskWindow::chooseFingerprintPlace()
{
    if (m_signing.hasSignature())
        return;
    try {
        m_fingerprint.setPlace(m_placePanel->fingerprintPlace());
    } catch (const Trouble &trouble) {
        showTrouble(this, trouble);
    }
}

bool DeskWindow::openPage(const QString &path)
{
    try {
        std::unique_ptr<Pages> pages = openPages(path);
        end({});
        showPages(std::move(pages), QFileInfo(path).fileName());
        m_status->note(tr("Move the field to where the signature belongs, then start signing."));
        return true;
    } catch (const Trouble &trouble) {
        showTrouble(this, trouble);
        return false;
    }
}

void DeskWindow::showPages(std::unique_ptr<Pages> pages, const QString &title)
{
    const std::unique_ptr<Pages> before = std::move(m_pages); // the view uses the old pages until it has the new ones
    m_pages = std::move(pages);
    m_placePanel->setPageCount(m_pages->count());
    m_view->setPage(*m_pages, 0);
    m_view->sheet().setField(usualField(m_pages->size(0), proportions(m_padPanel->model().row)));
    m_view->showField();
    setWindowTitle(tr("%1[*] - Sign Desk").arg(title));
}

void DeskWindow::start()
{
    try {
        PageSheet &sheet = m_view->sheet();
        m_session.open(m_padPanel->model(), &sheet, sheet.fieldPixels());
        m_session.setPen(m_penPanel->pen());
        m_session.signWidget()->setAccessibleName(tr("Signature"));
        m_session.signWidget()->setAccessibleDescription(tr("Grows while the signer writes on the pad"));
        sheet.setSignWidget(m_session.signWidget());
        m_rates.watch(m_session.signWidget());
        m_signing.begin();
        m_view->showField();
        chooseFingerprintPlace();
    } catch (const Trouble &trouble) {
        showTrouble(this, trouble);
    }
}

void DeskWindow::clear()
{
    if (!mayDiscard())
        return;
    if (m_signing.clear())
        m_status->note(tr("The field is empty, to be signed anew."));
    else
        m_status->note(
            tr("The field is empty, but the pad does not answer: see that it is plugged in, cancel, and start again."));
}

void DeskWindow::cancel()
{
    if (mayDiscard())
        end(tr("Cancelled. The pad is closed."));
}

/// A cancel tapped by the signer discards what is not confirmed.
void DeskWindow::cancelOnPad()
{
    if (!m_signing.isKept())
        m_status->note(tr("The signer tapped cancel after confirming; the confirmed signature is kept."));
    else
        end(tr("The signer cancelled. The pad is closed."));
}

void DeskWindow::end(const QString &message)
{
    m_view->sheet().setSignWidget(nullptr);
    m_rates.watch(nullptr);
    m_fingerprint.end();
    m_session.close();
    m_signing.end();
    showRates(0);
    m_status->note(message);
}

void DeskWindow::follow(SigningState state)
{
    m_actions.follow(state, m_padPanel->model().row.hasFingerprintSensor);
    m_padPanel->follow(state, m_signing.isPadAway());
    m_placePanel->setLocked(m_signing.hasSignature());
    m_view->setLocked(m_signing.hasSignature());
    if (state == SigningState::Waiting)
        m_status->note(tr("The signer may write on the pad."));
    else if (state == SigningState::Writing)
        m_status->note(tr("Confirm here, or on the pad, when all is written."));
    else if (state == SigningState::Confirmed)
        m_status->note(tr("Confirmed. Save, export or print it, then cancel or clear for the next one."));
    else if (state == SigningState::Changed)
        m_status->note(tr("Something was written after the confirmation: confirm again, or clear."));
}

void DeskWindow::followPad()
{
    m_padPanel->follow(m_signing.state(), m_signing.isPadAway());
    m_status->note(noteOnPad());
}

/// What to do when the pad no longer answers, or answers again.
QString DeskWindow::noteOnPad() const
{
    const bool isConfirmed = m_signing.state() == SigningState::Confirmed;
    if (!m_signing.isPadAway())
        return isConfirmed ? tr("The pad answers again.")
            : m_signing.hasSignature()
            ? tr("The pad answers again, but strokes may be missing: clear the field and let "
                 "the signer sign anew.")
            : tr("The pad answers again. The signer may write on the pad.");
    if (isConfirmed)
        return tr("The pad no longer answers. The confirmed signature is kept: save, export or print it.");
    if (m_signing.hasSignature())
        return tr("The pad no longer answers. What it sent is kept, but strokes may be missing: see that it is plugged "
                  "in, cancel, and start again.");
    return tr("The pad no longer answers: see that it is plugged in, cancel, and start again.");
}

void DeskWindow::confirmDoubtful(int points)
{
    if (m_isAsking) // the signer goes on tapping while the question is open
        return;
    m_isAsking = true;
    const bool isAccepted = m_files.mayLackStrokes();
    m_isAsking = false;
    if (isAccepted)
        m_signing.confirmDoubtful(points);
}

void DeskWindow::showRates(int points)
{
    m_rates.look(points);
    m_status->show(points, m_rates);
}

void DeskWindow::showKept()
{
    setWindowModified(!m_signing.isKept());
}

/// Asks the clerk, unless everything confirmed was saved.
bool DeskWindow::mayDiscard()
{
    return m_signing.isKept() || m_files.mayGo();
}

/// Asks the clerk before unsaved ink is lost with the page, confirmed or not.
bool DeskWindow::mayLeave()
{
    return !m_signing.isUnsaved() || m_files.mayGo();
}

SignedDocument DeskWindow::signedDocument()
{
    const FieldContent content = contentOf(m_session);
    PlacedSignature signature;
    signature.page = m_placePanel->page();
    signature.strokes = content.strokes;
    signature.field = m_view->sheet().field();
    if (content.hasFingerprint) {
        signature.fingerprint = m_fingerprint.picture();
        signature.fingerprintField = m_fingerprint.rectangle();
    }
    return {*m_pages, signature};
}

void DeskWindow::savePage()
{
    std::optional<SignedDocument> document;
    if (m_files.attempt([&] { document.emplace(signedDocument()); }) && m_files.saveSignedPage(*document))
        keep(m_pages->isOutdated()
                ? tr("The page is saved as it was when it was opened: its file has changed since then.")
                : tr("The page is saved."));
}

void DeskWindow::print()
{
    std::optional<SignedDocument> document;
    if (m_files.attempt([&] { document.emplace(signedDocument()); }) && m_files.print(*document, m_pages->count()))
        keep(m_pages->isOutdated()
                ? tr("The page is printed as it was when it was opened: its file has changed since then.")
                : tr("The page is printed."));
}

void DeskWindow::exportFingerprint()
{
    bool hasFingerprint = false;
    if (!m_files.attempt([&] { hasFingerprint = contentOf(m_session).hasFingerprint; }))
        return;
    if (!hasFingerprint)
        showTrouble(this, {tr("There is no fingerprint."), tr("Let the signer lay a finger on the pad's sensor.")});
    else if (m_files.exportFingerprint(m_fingerprint))
        m_status->note(tr("The fingerprint is exported."));
}

void DeskWindow::keep(const QString &message)
{
    m_signing.keep();
    m_status->note(message);
}

void DeskWindow::aboutDesk()
{
    QMessageBox::about(this, tr("About Sign Desk"),
        tr("Sign Desk lets a customer sign a page on a signature pad, and saves or prints it with the signature."));
}

void DeskWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayLeave());
}

} // namespace signdesk
