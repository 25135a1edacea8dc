/// @file
/// One client's WebSocket, with the limits that every client keeps: how fast it talks, how long it says nothing, how
/// long it takes nothing.
#ifndef CLIENTLINK_H
#define CLIENTLINK_H

#include "journal.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QTimer>

class QWebSocket;

namespace bridge {

/// Why this side closes: the codes of RFC 6455.
inline constexpr int kUnsupportedData = 1003;
inline constexpr int kPolicyViolation = 1008;
inline constexpr int kIdle = 4000; ///< of the codes that are free for applications

/// Limits of a conversation; the tests take shorter ones.
struct TalkLimits
{
    int idleMs = 15 * 60 * 1000; ///< without a message or a point
    int stalledMs = 30000; ///< with bytes that the client does not take
    int pingMs = 20000; ///< and a client that has not answered the last ping is gone
    int messagesPerSecond = 200;
    int waiting = 64; ///< requests without an answer
    qint64 unsentBytes = 128 * 1024; ///< above which no further points are sent
    int pictures = 8; ///< asked for and not yet made
    qint64 unsentPictures = 16 * 1024 * 1024; ///< bytes, above which no further one is made
};

/// On the main thread.
class ClientLink : public QObject
{
    Q_OBJECT

public:
    /// Takes the socket over.
    ClientLink(QWebSocket *socket, Journal &journal, TalkLimits limits, QObject *parent);
    ~ClientLink() override;

    void send(const QJsonObject &message);
    void sendText(const QString &text);
    /// The id in front, four bytes with the highest first, and then the bytes themselves.
    void sendBinary(int id, const QByteArray &bytes);

    /// Whether the client has taken enough of what was sent to get more.
    bool hasRoom() const;
    bool hasRoomForPictures() const;
    /// Something has happened for this client: it is not idle.
    void touch() { m_sinceUse.start(); }
    /// As long as the person is asked, nobody is idle.
    void setAsking(bool isAsking) { m_isAsking = isAsking; }

    /// Closes the connection, once, and tells the client why; nothing is heard of it afterwards but that it has ended.
    void end(Refusal why, int code);
    void close(int code, const QString &reason);

signals:
    void heard(const QString &text);
    void taken(); ///< bytes have gone out
    void ending(); ///< it is being closed
    void ended(); ///< the connection is no more

private:
    void onText(const QString &text);
    void onClosing();
    bool isFlooding();
    void look();
    void ping();

    QWebSocket *m_socket;
    Journal &m_journal;
    const TalkLimits m_limits;
    QTimer m_clock;
    QElapsedTimer m_sinceUse;
    QElapsedTimer m_sinceTaken; ///< since the client has last taken bytes
    QElapsedTimer m_second;
    QElapsedTimer m_sincePing;
    int m_inSecond = 0;
    bool m_isAsking = false;
    bool m_isEnding = false;
    bool m_awaitsPong = false;
};

} // namespace bridge

#endif
