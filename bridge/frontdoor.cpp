#include "frontdoor.h"

#include "handshakesocket.h"
#include "messagereader.h"
#include "peeruser.h"

#include <QJsonObject>
#include <QTimer>
#include <QWebSocket>

#include <unistd.h>

namespace bridge {

namespace {

/// A client of 127.0.0.1 and one of ::1 may have the same port.
quint32 nameOfPeer(const QHostAddress &address, quint16 port)
{
    return (address.protocol() == QAbstractSocket::IPv4Protocol ? 0U : 0x10000U) + port;
}

constexpr char kPageFields[] = "X-Frame-Options: DENY\r\n"
                               "Content-Security-Policy: default-src 'self'; img-src 'self' blob: data:; "
                               "style-src 'self' 'unsafe-inline'; connect-src 'self' ws://127.0.0.1:* "
                               "ws://localhost:* http://127.0.0.1:*; frame-ancestors 'none'\r\n"
                               "Cross-Origin-Resource-Policy: same-origin\r\nReferrer-Policy: no-referrer\r\n";

} // namespace

FrontDoor::FrontDoor(Journal &journal, DoorLimits limits, QObject *parent)
    : QObject(parent)
    , m_journal(journal)
    , m_limits(limits)
    , m_upgrader(QStringLiteral("kv-sign-bridge"), QWebSocketServer::NonSecureMode)
{
    connect(&m_four, &Listener::arrived, this, &FrontDoor::accept);
    connect(&m_six, &Listener::arrived, this, &FrontDoor::accept);
    connect(&m_upgrader, &QWebSocketServer::newConnection, this, &FrontDoor::takeUpgraded);
}

bool FrontDoor::listen(quint16 port)
{
    if (!m_four.listen(QHostAddress::LocalHost, port))
        return false;
    if (m_six.listen(QHostAddress::LocalHostIPv6, m_four.serverPort()))
        return true;
    // A machine without IPv6 has 127.0.0.1 alone; a program that has taken ::1 would get half of our clients.
    if (m_six.serverError() != QAbstractSocket::AddressInUseError)
        return true;
    m_four.close();
    return false;
}

bool FrontDoor::adopt(const QList<int> &descriptors)
{
    for (const int descriptor : descriptors) {
        Listener &listener = m_four.isListening() ? m_six : m_four;
        if (listener.isListening() || !listener.setSocketDescriptor(descriptor)
            || !listener.serverAddress().isLoopback())
            return false;
    }
    return m_four.isListening() && (!m_six.isListening() || m_six.serverPort() == m_four.serverPort());
}

quint16 FrontDoor::port() const
{
    return m_four.serverPort();
}

void FrontDoor::setRules(AdmissionRules rules)
{
    m_rules = std::move(rules);
    m_rules.port = port();
}

void FrontDoor::accept(qintptr descriptor)
{
    if (*m_connections >= m_limits.sockets) {
        m_journal.refused(Refusal::TooMany);
        ::close(static_cast<int>(descriptor));
        return;
    }
    auto *socket = new HandshakeSocket(
        m_connections, m_limits.unsentBytes, [this] { m_journal.refused(Refusal::Stalled); }, this);
    if (!socket->setSocketDescriptor(descriptor)) {
        delete socket;
        return;
    }
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    if (ownerOf(socket->peerAddress(), socket->peerPort(), port()) != geteuid()) {
        refuse(socket, Refusal::OtherUser);
        return;
    }
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { look(socket); });
    auto *late = new QTimer(socket);
    late->setObjectName(QStringLiteral("late"));
    late->setSingleShot(true);
    connect(late, &QTimer::timeout, this, [this, socket] { refuse(socket, Refusal::Slow); });
    late->start(m_limits.headMs);
    look(socket);
}

void FrontDoor::look(HandshakeSocket *socket)
{
    RequestHead head;
    const HeadState state = readHead(socket->peek(kLongestHead + 4), head);
    if (state == HeadState::Incomplete)
        return;
    if (state == HeadState::Malformed)
        refuse(socket, Refusal::Malformed);
    else
        decide(socket, head);
}

void FrontDoor::decide(HandshakeSocket *socket, const RequestHead &head)
{
    const Admission admission = admit(head, m_rules);
    switch (admission.kind) {
    case Admission::Refused:
        refuse(socket, admission.refusal);
        break;
    case Admission::Hello:
        sendHello(socket, admission.origin);
        break;
    case Admission::Page:
        sendPage(socket, head.target);
        break;
    case Admission::Upgrade:
        handOver(socket, admission);
        break;
    }
}

/// Its head has been decided on, in one way or the other.
void FrontDoor::listenNoMore(HandshakeSocket *socket)
{
    disconnect(socket, &QTcpSocket::readyRead, this, nullptr);
    if (auto *late = socket->findChild<QTimer *>(QStringLiteral("late"))) {
        late->stop();
        late->deleteLater(); // this may be its own signal
    }
}

void FrontDoor::handOver(HandshakeSocket *socket, const Admission &admission)
{
    const quint32 peer = nameOfPeer(socket->peerAddress(), socket->peerPort());
    m_admitted.insert(peer, {admission, socket});
    listenNoMore(socket);
    disconnect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    socket->announce(kSubprotocol);
    m_upgrader.handleConnection(socket);
    // Qt looks at it from the event loop. The head is whole, so the handshake is over after that; what Qt would not
    // take goes no further.
    QMetaObject::invokeMethod(
        this,
        [this, peer, socket = QPointer<HandshakeSocket>(socket)] {
            if (m_admitted.remove(peer) > 0 && socket)
                refuse(socket, Refusal::BadUpgrade);
        },
        Qt::QueuedConnection);
}

void FrontDoor::takeUpgraded()
{
    while (QWebSocket *client = m_upgrader.nextPendingConnection()) {
        client->setMaxAllowedIncomingFrameSize(kLargestMessage);
        client->setMaxAllowedIncomingMessageSize(kLargestMessage);
        const Admitted admitted = m_admitted.take(nameOfPeer(client->peerAddress(), client->peerPort()));
        // A QWebSocket does not delete the socket below it.
        connect(client, &QObject::destroyed, this, [socket = admitted.socket] {
            if (socket)
                socket->deleteLater();
        });
        emit opened(client, admitted.admission.origin, admitted.admission.hasToken);
    }
}

void FrontDoor::refuse(HandshakeSocket *socket, Refusal why)
{
    m_journal.refused(why);
    answer(socket, "403 Forbidden", {}, {});
}

void FrontDoor::answer(
    HandshakeSocket *socket, const QByteArray &status, const QByteArray &fields, const QByteArray &body)
{
    listenNoMore(socket);
    socket->write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\nConnection: close\r\n" + fields + "\r\n" + body);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    socket->close();
    if (socket->state() == QAbstractSocket::UnconnectedState)
        socket->deleteLater();
}

void FrontDoor::sendHello(HandshakeSocket *socket, const QByteArray &origin)
{
    QByteArray fields = "Content-Type: application/json\r\nCache-Control: no-store\r\nVary: Origin\r\n"
                        "X-Content-Type-Options: nosniff\r\nX-Frame-Options: DENY\r\n";
    if (!origin.isEmpty())
        fields += "Access-Control-Allow-Origin: " + origin + "\r\n";
    answer(socket, "200 OK", fields,
        toText({{QStringLiteral("product"), QStringLiteral("kv-sign-bridge")},
            {QStringLiteral("version"), QStringLiteral(KV_BRIDGE_VERSION)}, {QStringLiteral("protocol"), 1}}));
}

void FrontDoor::sendPage(HandshakeSocket *socket, const QByteArray &target)
{
    const Page page = m_pages ? m_pages(target) : Page{};
    if (page.bytes.isEmpty()) {
        refuse(socket, Refusal::UnknownPath);
        return;
    }
    answer(socket, "200 OK",
        "Content-Type: " + page.type + "\r\nCache-Control: no-store\r\nX-Content-Type-Options: nosniff\r\n"
            + kPageFields,
        page.bytes);
}

} // namespace bridge
