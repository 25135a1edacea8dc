#include "padserver.h"

#include "kvsignpadsdk_global.h"
#include "socketpath.h"

#include <algorithm>
#include <stdexcept>

namespace virtualpad {

using kvsim::Event;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kQuickScreenMs = 200;
constexpr int kSlowScreenMs = 3000;
constexpr const char *kCommands[] = {
    "OpenDeviceLCD", "ClearDeviceContent", "ShowVersionInfoOnDevice", "SetDevicePenStyle", "ShowFPImageOnDevice"};

Event answer(const char *operation, int result)
{
    Event event;
    event.kind = Event::Kind::Answer;
    event.operation = operation;
    event.value = result;
    return event;
}

Event fault(Event::Kind kind, int value = 0)
{
    Event event;
    event.kind = kind;
    event.value = value;
    return event;
}

/// A picture of 5-6-5 colours, high byte first, in hexadecimal digits. Null when it is not complete.
QImage pictureOf(int width, int height, const QByteArray &digits)
{
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (width <= 0 || height <= 0 || width > 1000 || height > 1000 || bytes.size() != width * height * 2)
        return {};
    QImage picture(width, height, QImage::Format_RGB16);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int at = (y * width + x) * 2;
            const unsigned high = static_cast<unsigned char>(bytes[at]),
                           low = static_cast<unsigned char>(bytes[at + 1]);
            reinterpret_cast<quint16 *>(picture.scanLine(y))[x] = static_cast<quint16>(high << 8 | low);
        }
    return picture;
}

} // namespace

PadServer::PadServer(const kvsim::PadModel &model, QObject *parent)
    : QObject(parent)
    , m_model(&model)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &PadServer::takeConnection);
}

/// The connections end only after this, and must not say so to what is left of it.
PadServer::~PadServer()
{
    for (QLocalSocket *program : m_server.findChildren<QLocalSocket *>())
        program->disconnect(this);
}

void PadServer::listen()
{
    const QString path = QString::fromStdString(kvsim::virtualPadSocket());
    QLocalSocket other;
    other.connectToServer(path);
    if (other.waitForConnected(500))
        throw std::runtime_error("another virtual pad is open");
    QLocalServer::removeServer(path); // left behind by one that was killed
    if (!m_server.listen(path))
        throw std::runtime_error((path + ": " + m_server.errorString()).toStdString());
}

std::string PadServer::versionText() const
{
    const kvsim::PadModel *shown = m_model;
    if (m_troubles.isOtherModel)
        shown = kvsim::padOfType(m_model->deviceType == KVS300_DEVICE ? KVM450_DEVICE : KVS300_DEVICE);
    return "KV" + std::string(shown->name) + " VIRTUAL 1.0";
}

void PadServer::setModel(const kvsim::PadModel &model)
{
    m_model = &model;
}

void PadServer::setTroubles(const Troubles &troubles)
{
    const bool wasUnplugged = m_troubles.isUnplugged;
    m_troubles = troubles;
    if (!isOpen())
        return;
    if (troubles.isUnplugged != wasUnplugged)
        sendNow(fault(troubles.isUnplugged ? Event::Kind::Unplug : Event::Kind::Plug));
    sendState();
}

void PadServer::takeConnection()
{
    while (QLocalSocket *program = m_server.nextPendingConnection()) {
        connect(program, &QLocalSocket::readyRead, this, [=] { takeLines(program); });
        connect(program, &QLocalSocket::disconnected, this, [=] { close(program); });
        connect(program, &QLocalSocket::disconnected, program, &QObject::deleteLater);
        takeLines(program);
    }
}

void PadServer::takeLines(QLocalSocket *program)
{
    while (program->canReadLine())
        takeLine(program, program->readLine().trimmed());
}

void PadServer::takeLine(QLocalSocket *program, const QByteArray &line)
{
    const QList<QByteArray> fields = line.split(' ');
    const bool isOn = fields.size() > 1 && fields[1] == "1";
    if (fields[0] == "Initial" && fields.size() > 1)
        open(program, fields[1].toInt());
    else if (program != m_program)
        return;
    else if (fields[0] == "UnInitial")
        close(program);
    else if (fields[0] == "OpenDeviceLCD")
        emit screenSwitched(isOn);
    else if (fields[0] == "ClearDeviceContent")
        emit cleared();
    else if (fields[0] == "ShowVersionInfoOnDevice")
        emit versionShown(isOn);
    else if (fields[0] == "ShowFPImageOnDevice" && fields.size() == 4)
        emit pictureShown(pictureOf(fields[1].toInt(), fields[2].toInt(), fields[3]));
}

/// The pad has one user. Whether the last one is gone may not have come through yet.
void PadServer::open(QLocalSocket *program, int deviceType)
{
    if (m_program && m_program != program) {
        QLocalSocket *const last = m_program;
        last->waitForReadyRead(0);
        takeLines(last);
    }
    const kvsim::PadModel *model = kvsim::padOfType(deviceType);
    if (m_program || !model) {
        const std::string refusal = "version: 2\nmodel: " + std::string(m_model->name) + "\n"
            + eventLine(answer("Initial", model ? KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL : KVSPDART_INVALID_PARAMETERS));
        program->write((refusal + "\n").c_str());
        program->disconnectFromServer();
        return;
    }
    m_program = program;
    m_model = model;
    sendOpening();
    if (m_troubles.isUnplugged)
        m_program = nullptr;
    else
        emit opened();
}

void PadServer::close(QLocalSocket *program)
{
    if (program != m_program)
        return;
    m_program = nullptr;
    emit closed();
}

void PadServer::sendOpening()
{
    m_begin = Clock::now();
    m_lastUs = 0;
    m_program->write(("version: 2\nmodel: " + std::string(m_model->name) + "\n").c_str());
    sendState();
    sendNow(answer("Initial", m_troubles.isUnplugged ? KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL : KVSPDARI_SUCCESS));
    m_program->flush();
}

/// All that can be wrong, the right things too, so that nothing is left of another window.
void PadServer::sendState()
{
    Event version = fault(Event::Kind::Text);
    version.operation = "GetDevicePartsVersion";
    version.text = versionText();
    sendNow(version);
    for (const char *command : kCommands)
        sendNow(answer(command, m_troubles.refuses ? KVSPDARI_LIBUSB_SENT_CMD_FAIL : KVSPDARI_SUCCESS));
    sendNow(fault(Event::Kind::Screen, m_troubles.hasSlowScreen ? kSlowScreenMs : kQuickScreenMs));
}

void PadServer::send(Event event, Clock::time_point time)
{
    if (!m_program)
        return;
    const std::int64_t us = std::chrono::duration_cast<std::chrono::microseconds>(time - m_begin).count();
    event.timeUs = m_lastUs = std::max(us, m_lastUs);
    m_program->write((eventLine(event) + "\n").c_str());
    m_program->flush();
}

void PadServer::sendPacket(Clock::time_point time, const kvsim::Packet &packet)
{
    Event event;
    event.packet = packet;
    send(event, time);
}

void PadServer::sendFingerprint(const QString &file, int score)
{
    Event event = fault(Event::Kind::Fingerprint);
    event.file = file.toStdString();
    event.score = score;
    sendNow(event);
}

} // namespace virtualpad
