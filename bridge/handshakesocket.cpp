#include "handshakesocket.h"

#include <utility>

namespace bridge {

HandshakeSocket::HandshakeSocket(std::shared_ptr<int> count, QObject *parent)
    : QTcpSocket(parent)
    , m_count(std::move(count))
{
    ++*m_count;
}

HandshakeSocket::~HandshakeSocket()
{
    --*m_count;
}

qint64 HandshakeSocket::writeData(const char *data, qint64 size)
{
    if (m_subprotocol.isEmpty())
        return QTcpSocket::writeData(data, size);
    m_head.append(data, static_cast<int>(size));
    const int end = m_head.indexOf("\r\n\r\n");
    if (end < 0)
        return size;
    if (m_head.startsWith("HTTP/1.1 101 "))
        m_head.insert(end, "\r\nSec-WebSocket-Protocol: " + m_subprotocol);
    m_subprotocol.clear();
    const QByteArray head = std::exchange(m_head, {});
    return QTcpSocket::writeData(head.constData(), head.size()) == head.size() ? size : -1;
}

} // namespace bridge
