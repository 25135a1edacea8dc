/// @file
/// The one port on loopback: takes connections, looks at the head of each before anything else does, answers the plain
/// requests and hands over the WebSockets.
#ifndef FRONTDOOR_H
#define FRONTDOOR_H

#include "admission.h"
#include "journal.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPointer>
#include <QTcpServer>
#include <QWebSocket>
#include <QWebSocketServer>

#include <functional>
#include <memory>

namespace bridge {

class HandshakeSocket;

/// Limits of the door; the tests take shorter times.
struct DoorLimits
{
    int headMs = 5000; ///< from the connection to the whole head
    int sockets = 32; ///< connections at a time, of all kinds
    qint64 unsentBytes = 128 * 1024 * 1024; ///< for a client that does not take them; two pictures have less
};

/// A listening socket. QTcpServer makes QTcpSockets; ours name the subprotocol.
class Listener : public QTcpServer
{
    Q_OBJECT

public:
    using QTcpServer::QTcpServer;

signals:
    void arrived(qintptr descriptor);

protected:
    void incomingConnection(qintptr descriptor) override { emit arrived(descriptor); }
};

class FrontDoor : public QObject
{
    Q_OBJECT

public:
    /// Answers a page of the examples: its bytes and its type; empty bytes where there is none.
    struct Page
    {
        QByteArray type;
        QByteArray bytes;
    };
    using Pages = std::function<Page(const QByteArray &target)>;

    FrontDoor(Journal &journal, DoorLimits limits, QObject *parent = nullptr);

    /// Listens on 127.0.0.1 and, where the machine has it, on ::1. False when the port is taken.
    bool listen(quint16 port);
    /// Listens on sockets that the service manager has opened, which must be on loopback.
    bool adopt(const QList<int> &descriptors);
    quint16 port() const;

    void setRules(AdmissionRules rules);
    void setPages(Pages pages) { m_pages = std::move(pages); }

signals:
    /// A client that may talk. The receiver owns the socket.
    void opened(QWebSocket *socket, const QByteArray &origin, bool hasToken);

private:
    void accept(qintptr descriptor);
    void look(HandshakeSocket *socket);
    void decide(HandshakeSocket *socket, const RequestHead &head);
    void handOver(HandshakeSocket *socket, const Admission &admission);
    void listenNoMore(HandshakeSocket *socket);
    void takeUpgraded();
    void refuse(HandshakeSocket *socket, Refusal why);
    void answer(HandshakeSocket *socket, const QByteArray &status, const QByteArray &fields, const QByteArray &body);
    void sendHello(HandshakeSocket *socket, const QByteArray &origin);
    void sendPage(HandshakeSocket *socket, const QByteArray &target);

    Journal &m_journal;
    DoorLimits m_limits;
    AdmissionRules m_rules;
    Pages m_pages;
    Listener m_four;
    Listener m_six;
    QWebSocketServer m_upgrader;
    struct Admitted
    {
        Admission admission;
        QPointer<HandshakeSocket> socket;
    };
    QHash<quint32, Admitted> m_admitted; ///< by the name of the client, on its way through the handshake
    std::shared_ptr<int> m_connections = std::make_shared<int>(0); ///< sockets that there are
};

} // namespace bridge

#endif
