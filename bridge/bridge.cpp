#include "bridge.h"

#include "examplepages.h"
#include "origins.h"
#include "tokenfile.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <unistd.h>

namespace bridge {

namespace {

// A page that opens more sockets leaves room for the others.
constexpr int kMostOfAPage = 8;

// An editor may empty a list before it writes it, and no page is to lose its connection by that.
constexpr int kSettleMs = 300;

/// The sockets that systemd has opened for this process: from number 3 on, when they are meant for us.
QList<int> handedSockets()
{
    QList<int> sockets;
    if (qEnvironmentVariableIntValue("LISTEN_PID") != getpid())
        return sockets;
    for (int i = 0; i < qEnvironmentVariableIntValue("LISTEN_FDS"); ++i)
        sockets.append(3 + i);
    for (const char *name : {"LISTEN_PID", "LISTEN_FDS", "LISTEN_FDNAMES"})
        qunsetenv(name); // they are not for what this process starts
    return sockets;
}

} // namespace

Bridge::Bridge(const Settings &settings, bool canAsk, DoorLimits door, TalkLimits talk)
    : m_settings(settings)
    , m_talk(talk)
    , m_consents(Consents::standardPath())
    , m_consentDesk(m_consents, canAsk)
    , m_desk(QFile::encodeName(settings.driver).toStdString(), settings.allowsUnsafeDriver)
    , m_door(m_journal, door)
{
    connect(&m_door, &FrontDoor::opened, this, &Bridge::admit);
    connect(&m_consents, &Consents::revoked, this, [this](const QByteArray &origin) {
        for (Conversation *conversation : qAsConst(m_conversations)) {
            if (conversation->origin() == origin)
                conversation->dismiss(QStringLiteral("the consent was taken back"));
        }
    });
    const auto readSoon = [this] { m_listsSettle.start(); };
    connect(&m_lists, &QFileSystemWatcher::directoryChanged, this, readSoon);
    connect(&m_lists, &QFileSystemWatcher::fileChanged, this, readSoon);
    m_listsSettle.setSingleShot(true);
    m_listsSettle.setInterval(kSettleMs);
    connect(&m_listsSettle, &QTimer::timeout, this, &Bridge::setRules);
}

Bridge::~Bridge()
{
    for (Conversation *conversation : qAsConst(m_conversations))
        disconnect(conversation, &QObject::destroyed, this, nullptr);
    qDeleteAll(m_conversations);
    if (!m_tokenPath.isEmpty())
        QFile::remove(m_tokenPath);
}

bool Bridge::listen()
{
    const QList<int> handed = handedSockets();
    if (!handed.isEmpty())
        return m_door.adopt(handed);
    const int tries = m_settings.triesRange ? kPortCount : 1;
    for (int i = 0; i < tries; ++i) {
        if (m_door.listen(static_cast<quint16>(m_settings.port + i)))
            return true;
    }
    return false;
}

QString Bridge::start()
{
    if (!listen())
        return QStringLiteral("no port of loopback is free for it");
    const QString path = m_settings.tokenFile.isEmpty() ? tokenPath(port()) : m_settings.tokenFile;
    if (const std::optional<QByteArray> token = newToken(path)) {
        m_token = *token;
        m_tokenPath = path;
    } else {
        Journal::say(QStringLiteral("no token for programs: its folder is not private, or cannot be written"));
    }
    setRules();
    m_door.setPages(&examplePage);
    Journal::say(QStringLiteral("listens on port %1 of loopback").arg(port()));
    return {};
}

void Bridge::setRules()
{
    AdmissionRules rules;
    rules.token = m_token;
    rules.servesPages = m_settings.isDemo;
    for (const QByteArray &origin : m_settings.origins)
        rules.origins.insert(origin);
    if (m_settings.isDemo)
        rules.origins += ownOrigins();
    if (m_settings.readsLists) {
        const OriginLists lists = readOrigins(originFolders());
        rules.origins += lists.origins;
        for (const QString &complaint : lists.complaints)
            Journal::say(complaint);
        followLists();
    }
    m_door.setRules(rules);
    for (Conversation *conversation : qAsConst(m_conversations)) {
        if (!conversation->origin().isEmpty() && !rules.origins.contains(conversation->origin()))
            conversation->dismiss(QStringLiteral("the page is no longer on the list"));
    }
}

/// Hears of changes in the lists, and where there is no folder of them yet, in the one above.
void Bridge::followLists()
{
    QStringList paths;
    for (const QString &folder : originFolders()) {
        QFileInfo nearest(folder);
        while (!nearest.exists() && !nearest.isRoot())
            nearest.setFile(nearest.absolutePath());
        paths.append(nearest.filePath());
        for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
            paths.append(file.filePath());
    }
    for (const QString &path : m_lists.directories() + m_lists.files()) {
        if (!paths.contains(path))
            m_lists.removePath(path);
    }
    m_lists.addPaths(paths); // those that it has it passes over
}

/// Those of the example pages.
QSet<QByteArray> Bridge::ownOrigins() const
{
    QSet<QByteArray> origins;
    for (const char *host : {"127.0.0.1", "localhost", "[::1]"})
        origins.insert(QByteArray("http://") + host + ':' + QByteArray::number(port()));
    return origins;
}

int Bridge::conversationsOf(const QByteArray &origin) const
{
    return static_cast<int>(std::count_if(m_conversations.begin(), m_conversations.end(),
        [&](const Conversation *conversation) { return conversation->origin() == origin; }));
}

void Bridge::admit(QWebSocket *socket, const QByteArray &origin, bool hasToken)
{
    if (!hasToken && conversationsOf(origin) >= kMostOfAPage) {
        m_journal.refused(Refusal::TooMany);
        socket->setParent(this);
        connect(socket, &QWebSocket::disconnected, socket, &QObject::deleteLater); // first: it may be so at once
        socket->close(QWebSocketProtocol::CloseCodePolicyViolated, QLatin1String(nameOf(Refusal::TooMany)));
        return;
    }
    const bool isOwnPage = m_settings.isDemo && ownOrigins().contains(origin);
    const bool isAsked = m_settings.asksConsent && !hasToken && !isOwnPage;
    auto *conversation = new Conversation(
        socket, hasToken ? QByteArray() : origin, m_desk, isAsked ? &m_consentDesk : nullptr, m_journal, m_talk, this);
    m_conversations.insert(conversation);
    connect(conversation, &QObject::destroyed, this, [this, conversation] { m_conversations.remove(conversation); });
}

} // namespace bridge
