#include "clientlink.h"

#include "messagereader.h"

#include <QWebSocket>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace bridge {

ClientLink::ClientLink(QWebSocket *socket, Journal &journal, TalkLimits limits, QObject *parent)
    : QObject(parent)
    , m_socket(socket)
    , m_journal(journal)
    , m_limits(limits)
{
    socket->setParent(this);
    connect(socket, &QWebSocket::textMessageReceived, this, &ClientLink::onText);
    connect(
        socket, &QWebSocket::binaryMessageReceived, this, [this] { end(Refusal::BinaryMessage, kUnsupportedData); });
    connect(socket, &QWebSocket::bytesWritten, this, [this] {
        m_sinceTaken.start();
        emit taken();
    });
    connect(socket, &QWebSocket::pong, this, [this] { m_awaitsPong = false; });
    connect(socket, &QWebSocket::aboutToClose, this, &ClientLink::onClosing);
    connect(socket, &QWebSocket::disconnected, this, &ClientLink::ended);
    m_sinceUse.start();
    m_sinceTaken.start();
    m_sincePing.start();
    connect(&m_clock, &QTimer::timeout, this, &ClientLink::look);
    m_clock.start(std::min({m_limits.idleMs, m_limits.stalledMs, m_limits.pingMs}) / 4 + 1);
}

ClientLink::~ClientLink()
{
    disconnect(m_socket, nullptr, this, nullptr);
}

/// From this side, from the other, or by Qt, which refuses a large message itself.
void ClientLink::onClosing()
{
    if (std::exchange(m_isEnding, true))
        return;
    if (m_socket->closeCode() == QWebSocketProtocol::CloseCodeTooMuchData)
        m_journal.refused(Refusal::LargeMessage);
    emit ending();
}

void ClientLink::onText(const QString &text)
{
    if (m_isEnding)
        return;
    touch();
    if (isFlooding())
        end(Refusal::Flood, kPolicyViolation);
    else
        emit heard(text);
}

bool ClientLink::isFlooding()
{
    if (!m_second.isValid() || m_second.elapsed() >= 1000) {
        m_second.start();
        m_inSecond = 0;
    }
    return ++m_inSecond > m_limits.messagesPerSecond;
}

void ClientLink::send(const QJsonObject &message)
{
    sendText(QString::fromUtf8(toText(message)));
}

void ClientLink::sendText(const QString &text)
{
    m_socket->sendTextMessage(text);
}

void ClientLink::sendBinary(int id, const QByteArray &bytes)
{
    QByteArray frame(4, 0);
    qToBigEndian(static_cast<quint32>(id), frame.data());
    m_socket->sendBinaryMessage(frame + bytes);
}

bool ClientLink::hasRoom() const
{
    return m_socket->bytesToWrite() < m_limits.unsentBytes;
}

bool ClientLink::hasRoomForPictures() const
{
    return m_socket->bytesToWrite() < m_limits.unsentPictures;
}

void ClientLink::look()
{
    const bool hasTaken = m_socket->bytesToWrite() == 0;
    if (hasTaken)
        m_sinceTaken.start();
    if (!hasTaken && m_sinceTaken.elapsed() > m_limits.stalledMs) {
        end(Refusal::Stalled, kPolicyViolation);
        m_socket->abort();
    } else if (m_sinceUse.elapsed() > m_limits.idleMs && !m_isAsking) {
        end(Refusal::Idle, kIdle);
    } else if (m_sincePing.elapsed() >= m_limits.pingMs) {
        ping();
    }
}

void ClientLink::ping()
{
    if (m_awaitsPong) {
        end(Refusal::Stalled, kPolicyViolation);
        m_socket->abort();
        return;
    }
    m_awaitsPong = true;
    m_sincePing.start();
    m_socket->ping();
}

void ClientLink::end(Refusal why, int code)
{
    if (m_isEnding)
        return;
    m_journal.refused(why);
    close(code, QLatin1String(nameOf(why)));
}

void ClientLink::close(int code, const QString &reason)
{
    m_socket->close(static_cast<QWebSocketProtocol::CloseCode>(code), reason);
}

} // namespace bridge
