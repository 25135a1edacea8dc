/// @file
/// A connection whose handshake answers with the subprotocol.
#ifndef HANDSHAKESOCKET_H
#define HANDSHAKESOCKET_H

#include <QTcpSocket>

#include <memory>

namespace bridge {

/// QWebSocketServer of Qt 5 knows no subprotocols, and a browser closes a connection whose handshake does not name the
/// one that it asked for. So the line is added on its way out.
class HandshakeSocket : public QTcpSocket
{
    Q_OBJECT

public:
    /// @param count of the sockets that there are; this one is in it as long as it lives. Qt undoes all connections of
    /// a socket that becomes a WebSocket, so that a signal would not tell.
    HandshakeSocket(std::shared_ptr<int> count, QObject *parent);
    ~HandshakeSocket() override;

    /// The next head that is written names this subprotocol. To be called before the socket is handed over.
    void announce(const QByteArray &subprotocol) { m_subprotocol = subprotocol; }

protected:
    qint64 writeData(const char *data, qint64 size) override;

private:
    const std::shared_ptr<int> m_count;
    QByteArray m_subprotocol;
    QByteArray m_head; ///< what was written of it so far
};

} // namespace bridge

#endif
