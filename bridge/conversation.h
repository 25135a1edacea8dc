/// @file
/// What one client says and hears: its requests, the answers, events and pictures.
#ifndef CONVERSATION_H
#define CONVERSATION_H

#include "clientlink.h"
#include "messagereader.h"
#include "paddesk.h"

#include <QObject>

class QWebSocket;

namespace bridge {

class ConsentDesk;

class Conversation : public QObject, private PadClient
{
    Q_OBJECT

public:
    /// Takes the socket over, and lives as long as it does: deletes itself when the connection ends.
    /// @param origin the page's; empty for a client with the token, whom nobody asks for consent
    /// @param consents null: nobody is asked
    Conversation(QWebSocket *socket, QByteArray origin, PadDesk &desk, ConsentDesk *consents, Journal &journal,
        TalkLimits limits, QObject *parent);
    ~Conversation() override;

    const QByteArray &origin() const { return m_origin; }
    /// Takes the pad away and ends the connection, when the page may no longer have it.
    void dismiss(const QString &reason);

private:
    void onText(const QString &text);
    void onRequest(const Request &request);
    void open(const Request &request);
    void openNow(const Request &request);
    void pen(const Request &request);
    void image(const Request &request);
    void live(const Request &request);
    void fingerprint(const Request &request);
    void close(const Request &request);
    void closeNow(int id);
    void run(int id, PadDesk::Work work);
    void finish(int id, const Outcome &outcome);
    void sendFailure(int id, const char *error, const QString &detail = {});
    void goOn();
    void giveBack();

    void onPoints(int first, const QByteArray &text) override;
    void onTap(bool confirm) override;
    void onLive(const QByteArray &type, const QByteArray &picture) override;
    void onLost() override;
    void onFound() override;
    void onQueue(int ahead) override;
    void onFree() override;

    ClientLink m_link;
    const QByteArray m_origin;
    PadDesk &m_desk;
    ConsentDesk *m_consents;
    Journal &m_journal;
    const TalkLimits m_limits;
    int m_waiting = 0;
    int m_pictures = 0; ///< of those that wait
    int m_openingId = 0; ///< of an open that has no answer yet
    bool m_isAllowed; ///< the person has said yes for this connection, or need not be asked
    bool m_isOpen = false;
    bool m_owesMore = false; ///< the pad waits for the client to take what was sent
};

} // namespace bridge

#endif
