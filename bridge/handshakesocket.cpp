#include "handshakesocket.h"

#include <QTimer>

#include <sys/socket.h>
#include <utility>

namespace bridge {

namespace {

constexpr int kLeavingMs = 2000;

} // namespace

HandshakeSocket::HandshakeSocket(
    std::shared_ptr<int> count, qint64 most, std::function<void()> overflowed, QObject *parent)
    : QTcpSocket(parent)
    , m_count(std::move(count))
    , m_most(most)
    , m_overflowed(std::move(overflowed))
{
    ++*m_count;
}

HandshakeSocket::~HandshakeSocket()
{
    --*m_count;
}

qint64 HandshakeSocket::writeData(const char *data, qint64 size)
{
    if (m_isLeaving)
        return size; // the last word has been said
    if (bytesToWrite() > m_most) {
        m_isLeaving = true;
        m_overflowed();
        QTimer::singleShot(0, this, [this] { abort(); });
        return size;
    }
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

void HandshakeSocket::close()
{
    if (m_isLeaving || state() != ConnectedState) {
        QTcpSocket::close();
        return;
    }
    m_isLeaving = true;
    disconnect(this, &QIODevice::readyRead, nullptr, nullptr); // whoever listened does so no more
    connect(this, &QIODevice::readyRead, this, [this] { readAll(); });
    connect(this, &QIODevice::bytesWritten, this, &HandshakeSocket::finishWriting);
    QTimer::singleShot(kLeavingMs, this, [this] { abort(); });
    readAll();
    finishWriting();
}

void HandshakeSocket::finishWriting()
{
    flush();
    if (bytesToWrite() == 0)
        shutdown(static_cast<int>(socketDescriptor()), SHUT_WR);
}

} // namespace bridge
