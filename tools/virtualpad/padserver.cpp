#include "padserver.h"

#include "kvsignpadsdk_global.h"
#include "socketpath.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

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

std::string headerOf(const ModelRow &model)
{
    return "version: 2\nmodel: " + std::string(model.name) + "\n";
}

std::string lineOf(const Event &event)
{
    return eventLine(event) + "\n";
}

/// Far more than programs that try to open the pad need.
constexpr int kMostConnections = 20;

/// Bytes that may wait for a program that has stopped reading; beyond that it is disconnected.
constexpr qint64 kMostUnread = 1 << 20;

} // namespace

PadServer::PadServer(const ModelRow &model, QObject *parent)
    : QObject(parent)
    , m_model(&model)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &PadServer::takeConnection);
}

/// The sockets are destroyed after this object; their signals must not reach it then.
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
    QLocalServer::removeServer(path); // a window that was killed leaves its socket behind
    if (!m_server.listen(path))
        throw std::runtime_error((path + ": " + m_server.errorString()).toStdString());
}

std::string PadServer::versionText() const
{
    const ModelRow *shown = m_model;
    if (m_troubles.isOtherModel)
        shown = modelOfType(m_model->deviceType == KVS300_DEVICE ? KVM450_DEVICE : KVS300_DEVICE);
    return "KV" + std::string(shown->name) + " VIRTUAL 1.0";
}

void PadServer::setModel(const ModelRow &model)
{
    m_model = &model;
}

void PadServer::setTroubles(const Troubles &troubles)
{
    const bool wasUnplugged = m_troubles.isUnplugged;
    m_troubles = troubles;
    if (!isOpen())
        return;
    const Clock::time_point now = Clock::now();
    std::string change;
    if (troubles.isUnplugged != wasUnplugged)
        change = lineAt(now, fault(troubles.isUnplugged ? Event::Kind::Unplug : Event::Kind::Plug));
    write(m_program, change + stateLines(now));
}

void PadServer::takeConnection()
{
    while (QLocalSocket *program = m_server.nextPendingConnection()) {
        if (m_readers.size() == kMostConnections) {
            delete program;
            continue;
        }
        m_readers[program];
        connect(program, &QLocalSocket::readyRead, this, [=] { takeLines(program); });
        connect(program, &QLocalSocket::disconnected, this, [=] {
            close(program);
            m_readers.erase(program);
        });
        connect(program, &QLocalSocket::disconnected, program, &QObject::deleteLater);
        takeLines(program);
    }
}

/// A command may end the connection or close the pad.
void PadServer::takeLines(QLocalSocket *program)
{
    const auto reader = [=]() -> CommandReader * {
        const auto found = m_readers.find(program);
        return found == m_readers.end() ? nullptr : &found->second;
    };
    if (reader())
        reader()->append(program->readAll());
    while (reader()) {
        const std::optional<PadCommand> command = reader()->next();
        if (!command)
            break;
        take(program, *command);
    }
    if (reader() && reader()->isTooLong())
        program->abort();
}

void PadServer::take(QLocalSocket *program, const PadCommand &command)
{
    using Kind = PadCommand::Kind;
    if (command.kind == Kind::Open)
        return open(program, command.deviceType);
    if (program != m_program)
        return;
    switch (command.kind) {
    case Kind::Close:
        return close(program);
    case Kind::Screen:
        emit screenSwitched(command.isOn);
        break;
    case Kind::Clear:
        emit cleared();
        break;
    case Kind::Version:
        emit versionShown(command.isOn);
        break;
    case Kind::Picture:
        emit pictureShown(command.picture);
        break;
    case Kind::Open:
    case Kind::Other:
        break;
    }
}

/// Only one program can have the pad open. Reads first what the last one has sent: it may have closed the pad already.
void PadServer::open(QLocalSocket *program, int deviceType)
{
    if (m_program && m_program != program) {
        QLocalSocket *const last = m_program;
        last->waitForReadyRead(0);
        takeLines(last);
    }
    const ModelRow *model = modelOfType(deviceType);
    if (m_program || !model) {
        write(program,
            headerOf(*m_model)
                + lineOf(
                    answer("Initial", model ? KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL : KVSPDART_INVALID_PARAMETERS)));
        program->disconnectFromServer();
        return;
    }
    const ModelRow *const before = std::exchange(m_model, model);
    m_begin = Clock::now();
    m_lastUs = 0;
    if (!write(program, headerOf(*m_model) + stateLines(m_begin)) || m_troubles.isUnplugged) {
        m_model = before; // the program has ended, or an unplugged pad refused it
        return;
    }
    m_program = program;
    m_readers.at(program).allowPictures();
    emit opened();
}

void PadServer::close(QLocalSocket *program)
{
    if (program != m_program)
        return;
    m_program = nullptr;
    emit closed();
}

/// The whole state of the pad. It also lists what works, so that faults of an earlier window do not last. The answer to
/// Initial ends it. The driver applies all of it at once.
std::string PadServer::stateLines(Clock::time_point time)
{
    Event version = fault(Event::Kind::Text);
    version.operation = "GetDevicePartsVersion";
    version.text = versionText();
    std::string lines = lineAt(time, version);
    for (const char *command : kCommands)
        lines += lineAt(time, answer(command, m_troubles.refuses ? KVSPDARI_LIBUSB_SENT_CMD_FAIL : KVSPDARI_SUCCESS));
    lines += lineAt(time, fault(Event::Kind::Screen, m_troubles.hasSlowScreen ? kSlowScreenMs : kQuickScreenMs));
    return lines
        + lineAt(time, answer("Initial", m_troubles.isUnplugged ? KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL : KVSPDARI_SUCCESS));
}

/// An event's line. Its time is never before that of the last line.
std::string PadServer::lineAt(Clock::time_point time, Event event)
{
    const std::int64_t us = std::chrono::duration_cast<std::chrono::microseconds>(time - m_begin).count();
    event.timeUs = m_lastUs = std::max(us, m_lastUs);
    return lineOf(event);
}

/// Returns false when the program is gone. A program that does not read is disconnected. Either may close the pad.
bool PadServer::write(QLocalSocket *program, const std::string &lines)
{
    program->write(lines.data(), static_cast<qint64>(lines.size()));
    program->flush();
    if (program->bytesToWrite() > kMostUnread)
        program->abort();
    return program->state() == QLocalSocket::ConnectedState;
}

void PadServer::send(const Event &event, Clock::time_point time)
{
    if (m_program)
        write(m_program, lineAt(time, event));
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
