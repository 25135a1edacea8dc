/// @file
/// A connection whose handshake answers with the subprotocol, and whose end arrives.
#ifndef HANDSHAKESOCKET_H
#define HANDSHAKESOCKET_H

#include <QTcpSocket>

#include <functional>
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
    /// @param most bytes that may wait for the other end to take them. More, such as the answers to pings of a client
    /// that reads nothing, end the connection
    /// @param overflowed called once when there were more
    HandshakeSocket(std::shared_ptr<int> count, qint64 most, std::function<void()> overflowed, QObject *parent);
    ~HandshakeSocket() override;

    /// The next head that is written names this subprotocol. To be called before the socket is handed over.
    void announce(const QByteArray &subprotocol) { m_subprotocol = subprotocol; }

    /// Sends what was written, takes and drops what still comes, and ends when the other end does, or after two
    /// seconds. A socket that is closed with bytes unread is reset, and the other end would not see the last words.
    /// The second call, such as that of abort(), ends it at once.
    void close() override;

protected:
    qint64 writeData(const char *data, qint64 size) override;

private:
    void finishWriting();

    const std::shared_ptr<int> m_count;
    const qint64 m_most;
    const std::function<void()> m_overflowed;
    bool m_isLeaving = false;
    QByteArray m_subprotocol;
    QByteArray m_head; ///< what was written of it so far
};

} // namespace bridge

#endif
