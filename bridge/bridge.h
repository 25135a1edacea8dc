/// @file
/// The bridge as a whole: the door, the pad, the consents and those who talk.
#ifndef BRIDGE_H
#define BRIDGE_H

#include "consentdesk.h"
#include "conversation.h"
#include "frontdoor.h"
#include "paddesk.h"
#include "settings.h"

#include <QFileSystemWatcher>
#include <QSet>
#include <QTimer>

namespace bridge {

class Bridge : public QObject
{
    Q_OBJECT

public:
    /// @param canAsk whether there is a screen for the question to the person
    Bridge(const Settings &settings, bool canAsk, DoorLimits door = {}, TalkLimits talk = {});
    ~Bridge() override;

    /// Listens, on the sockets of the service manager if there are some, and writes the token.
    /// @return what went wrong; empty: nothing
    QString start();

    quint16 port() const { return m_door.port(); }
    Journal &journal() { return m_journal; }
    ConsentDesk &consentDesk() { return m_consentDesk; }
    int conversations() const { return m_conversations.size(); }

private:
    bool listen();
    void setRules();
    void followLists();
    QSet<QByteArray> ownOrigins() const;
    int conversationsOf(const QByteArray &origin) const;
    void admit(QWebSocket *socket, const QByteArray &origin, bool hasToken);

    const Settings m_settings;
    const TalkLimits m_talk;
    Journal m_journal;
    Consents m_consents;
    ConsentDesk m_consentDesk;
    PadDesk m_desk;
    FrontDoor m_door;
    QFileSystemWatcher m_lists;
    QTimer m_listsSettle; ///< from a change to reading them
    QByteArray m_token;
    QString m_tokenPath;
    QSet<Conversation *> m_conversations;
};

} // namespace bridge

#endif
