#include "padwindow.h"

#include "fingerpanel.h"
#include "modelrules.h"
#include "padface.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include <cmath>

namespace virtualpad {

namespace {

/// How often a move gets an invalid pressure, when that is switched on.
constexpr int kInvalidEvery = 4;

} // namespace

PadWindow::PadWindow(const ModelRow &model, QWidget *parent)
    : QMainWindow(parent)
    , m_server(model)
    , m_face(new PadFace(this))
    , m_fingers(new FingerPanel(this))
    , m_status(new QLabel(this))
{
    m_server.listen();
    auto *const centre = new QWidget;
    auto *const layout = new QVBoxLayout(centre);
    layout->addWidget(m_face, 1);
    layout->addWidget(m_fingers);
    setCentralWidget(centre);
    statusBar()->addWidget(m_status);
    makeMenus();
    connectServer();
    showModel();
}

void PadWindow::makeMenus()
{
    QMenu *const pad = menuBar()->addMenu(tr("&Pad"));
    m_models = new QActionGroup(this);
    for (const ModelRow *model : kModelRows) {
        QAction *const action = m_models->addAction(model->name);
        action->setCheckable(true);
        action->setData(model->deviceType);
        pad->addAction(action);
    }
    connect(m_models, &QActionGroup::triggered, this, &PadWindow::chooseModel);
    pad->addSeparator();
    pad->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

    QMenu *const trouble = menuBar()->addMenu(tr("&Trouble"));
    m_unplug = addTrouble(trouble, tr("&Unplug"), tr("No packets come any more, and nothing can open the pad"));
    m_unplug->setShortcut(tr("Ctrl+U"));
    m_refuse = addTrouble(trouble, tr("&Refuse commands"), tr("Commands to the pad fail"));
    m_otherModel = addTrouble(trouble, tr("&Wrong model"), tr("The version text is that of another model"));
    m_invalidPressures = addTrouble(trouble, tr("&Invalid pressures"), tr("Some packets press harder than can be"));
    m_slowScreen = addTrouble(trouble, tr("&Slow screen"), tr("Showing a picture takes three seconds"));
}

QAction *PadWindow::addTrouble(QMenu *menu, const QString &text, const QString &tip)
{
    QAction *const action = menu->addAction(text);
    action->setCheckable(true);
    action->setStatusTip(tip);
    connect(action, &QAction::toggled, this, &PadWindow::applyTroubles);
    return action;
}

void PadWindow::connectServer()
{
    const auto change = [this](auto set) {
        PadDisplay display = m_face->display();
        set(display);
        m_face->setDisplay(display);
        showStatus();
    };
    connect(&m_server, &PadServer::opened, this, &PadWindow::showOpened);
    connect(&m_server, &PadServer::closed, this, &PadWindow::showClosed);
    connect(&m_server, &PadServer::cleared, this, [=] {
        m_face->clearInk();
        change([](PadDisplay &display) { display.picture = QImage(); });
    });
    connect(&m_server, &PadServer::screenSwitched, this,
        [=](bool isOn) { change([=](PadDisplay &display) { display.isScreenOn = isOn; }); });
    connect(&m_server, &PadServer::versionShown, this, [=](bool isOn) {
        const QString version = isOn ? QString::fromStdString(m_server.versionText()) : QString();
        change([=](PadDisplay &display) { display.version = version; });
    });
    connect(&m_server, &PadServer::pictureShown, this,
        [=](const QImage &picture) { change([&](PadDisplay &display) { display.picture = picture; }); });
    connect(m_face, &PadFace::packetDue, this, &PadWindow::sendPacket);
    connect(m_face, &PadFace::sensorTouched, m_fingers, &FingerPanel::layOn);
    connect(m_fingers, &FingerPanel::fingerLaidOn, &m_server, &PadServer::sendFingerprint);
}

void PadWindow::showModel()
{
    const ModelRow &model = m_server.model();
    m_face->setModel(model);
    m_fingers->setVisible(model.hasFingerprintSensor);
    for (QAction *action : m_models->actions())
        action->setChecked(action->data() == model.deviceType);
    setWindowTitle(tr("%1 - virtual pad").arg(model.name));
    showStatus();
}

void PadWindow::showOpened()
{
    PadDisplay display;
    display.hasPower = m_face->display().hasPower;
    display.isOpen = true;
    m_packets = 0;
    m_models->setEnabled(false); // the program has chosen the model by opening it
    showModel();
    m_face->setDisplay(display);
    showStatus();
}

void PadWindow::showClosed()
{
    m_models->setEnabled(true);
    PadDisplay display;
    display.hasPower = m_face->display().hasPower;
    m_face->setDisplay(display);
    m_face->clearInk();
    showStatus();
}

void PadWindow::showStatus()
{
    if (m_unplug->isChecked())
        m_status->setText(tr("Unplugged"));
    else if (!m_server.isOpen())
        m_status->setText(tr("Waits for a program that opens the pad (KVSIM_RECORDING=virtual)"));
    else if (m_packets == 0)
        m_status->setText(tr("Open"));
    else
        m_status->setText(tr("Open, packets: %1; the last one: x %2, y %3, pressure %4, status %5")
                              .arg(m_packets)
                              .arg(m_last.x)
                              .arg(m_last.y)
                              .arg(m_last.pressure)
                              .arg(m_last.status));
}

void PadWindow::chooseModel(const QAction *action)
{
    m_server.setModel(*modelOfType(action->data().toInt()));
    showModel();
}

void PadWindow::applyTroubles()
{
    m_server.setTroubles(
        {m_unplug->isChecked(), m_refuse->isChecked(), m_otherModel->isChecked(), m_slowScreen->isChecked()});
    PadDisplay display = m_face->display();
    display.hasPower = !m_unplug->isChecked(); // when the power is back, its picture shows again
    m_face->setDisplay(display);
    showStatus();
}

/// The packet in the model's raw units.
kvsim::Packet PadWindow::packetOf(const PenPoint &point, int status)
{
    const ModelRow &model = m_server.model();
    const int maxPressure = maxPressureOf(model, m_server.versionText()).value_or(model.maxPressure);
    const auto scaled = [](double share, int span) { return static_cast<int>(std::lround(share * span)); };
    kvsim::Packet packet{model.rawOffsetX + scaled(point.x, model.rawSpanX),
        model.rawOffsetY + scaled(point.y, model.rawSpanY), scaled(point.pressure, maxPressure), status};
    if (m_invalidPressures->isChecked() && status == KVSPDARI_PS_PEN_MOVE && m_packets % kInvalidEvery == 0)
        packet.pressure = maxPressure + 1 + m_packets % 100;
    return packet;
}

void PadWindow::sendPacket(std::chrono::steady_clock::time_point time, const PenPoint &point, int status)
{
    if (!m_server.isOpen())
        return;
    ++m_packets;
    m_last = packetOf(point, status);
    m_server.sendPacket(time, m_last);
    const bool padClears = status == KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON
        || (status == KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON && clearsAtConfirm(m_server.model()));
    if (padClears)
        m_face->clearInk();
    showStatus();
}

} // namespace virtualpad
