/// @file
/// The bridge in this process, on the simulated pad, and clients that talk to it over real sockets.
#ifndef BRIDGERUN_H
#define BRIDGERUN_H

#include "bridge.h"
#include "openpad.h"
#include "patience.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkRequest>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QWebSocket>
#include <QtEndian>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace bridgerun {

/// Waits, with the bridge alive, for something to become true.
inline bool until(const std::function<bool()> &condition)
{
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.elapsed() > std::chrono::milliseconds(kPatience).count())
            return false;
        QTest::qWait(2);
    }
    return true;
}

/// A client: a page of an origin, or a program with the token.
class Talker
{
public:
    Talker(quint16 port, const QByteArray &origin, const QByteArray &protocols = "kvsign.v1")
        : m_socket(QString::fromLatin1(origin))
    {
        QNetworkRequest request(QUrl(QStringLiteral("ws://127.0.0.1:%1/").arg(port)));
        request.setRawHeader("Sec-WebSocket-Protocol", protocols);
        QObject::connect(&m_socket, &QWebSocket::textMessageReceived, [this](const QString &text) {
            const QJsonObject message = QJsonDocument::fromJson(text.toUtf8()).object();
            if (message["event"] == "points")
                for (const QJsonValue &point : message["points"].toArray())
                    points.append(point);
            if (message["event"] == "points")
                ++batches;
            else
                m_messages.push_back(message);
        });
        QObject::connect(&m_socket, &QWebSocket::binaryMessageReceived,
            [this](const QByteArray &frame) { m_frames.push_back(frame); });
        m_socket.open(request);
    }

    bool isOpen()
    {
        return until([this] { return m_socket.isValid() || hasEnded(); }) && m_socket.isValid();
    }
    bool hasEnded() const { return m_socket.state() == QAbstractSocket::UnconnectedState; }
    bool ends()
    {
        return until([this] { return hasEnded(); });
    }
    int closeCode() const { return m_socket.closeCode(); }
    QWebSocket &socket() { return m_socket; }

    /// Once it is connected; what is said before goes nowhere.
    void say(const QByteArray &text)
    {
        m_wasOpen = m_wasOpen || isOpen();
        EXPECT_TRUE(m_wasOpen);
        m_socket.sendTextMessage(QString::fromUtf8(text));
    }

    /// The next message that has this member, with this value unless it is undefined; those before it are dropped.
    QJsonObject next(const char *member, const QJsonValue &value = QJsonValue::Undefined)
    {
        QJsonObject found;
        const bool came = until([&] {
            while (!m_messages.empty()) {
                const QJsonObject message = m_messages.front();
                m_messages.pop_front();
                if (message.contains(member) && (value.isUndefined() || message[member] == value)) {
                    found = message;
                    return true;
                }
            }
            return hasEnded();
        });
        EXPECT_TRUE(came && !found.isEmpty()) << "no message with " << member;
        return found;
    }

    /// The answer to the text, which has an id.
    QJsonObject ask(const QByteArray &text)
    {
        say(text);
        return next("id", QJsonDocument::fromJson(text).object()["id"]);
    }

    /// The name of the error that answers it; empty for none.
    QString errorOf(const QByteArray &text)
    {
        const QJsonObject answer = ask(text);
        EXPECT_EQ(answer["ok"].toBool(), !answer.contains("error"));
        return answer["error"].toString();
    }

    QString open(const char *model = "S300", int width = 800, int height = 452)
    {
        return errorOf(QStringLiteral(R"({"op":"open","id":1,"model":"%1","width":%2,"height":%3})")
                           .arg(QLatin1String(model))
                           .arg(width)
                           .arg(height)
                           .toUtf8());
    }

    /// The bytes that follow an answer; the frame names the answer's id.
    QByteArray frame(int id)
    {
        if (!until([this] { return !m_frames.empty() || hasEnded(); }) || m_frames.empty())
            return {};
        const QByteArray frame = m_frames.front();
        m_frames.pop_front();
        EXPECT_EQ(qFromBigEndian<quint32>(frame.constData()), static_cast<quint32>(id));
        return frame.mid(4);
    }

    QByteArray image(const char *kind)
    {
        const QJsonObject answer =
            ask(QStringLiteral(R"({"op":"image","id":9,"kind":"%1"})").arg(QLatin1String(kind)).toUtf8());
        EXPECT_TRUE(answer["ok"].toBool()) << kind;
        const QByteArray bytes = frame(9);
        EXPECT_EQ(bytes.size(), answer["bytes"].toInt()) << kind;
        return bytes;
    }

    QJsonArray points;
    int batches = 0;

private:
    QWebSocket m_socket;
    std::deque<QJsonObject> m_messages;
    std::deque<QByteArray> m_frames;
    bool m_wasOpen = false;
};

} // namespace bridgerun

inline constexpr char kShop[] = "https://shop.example";
inline constexpr char kBank[] = "https://bank.example";

class BridgeTest : public testing::Test
{
protected:
    BridgeTest()
    {
        for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR"})
            qputenv(name, QFile::encodeName(m_home.path()));
        setenv("KVSIM_RECORDING", "none", 1);
        setenv("KVSIM_SPEED", "max", 1);
        settings.port = 0;
        settings.triesRange = false;
        settings.origins = {kShop, kBank};
        settings.asksConsent = false;
        settings.driver = QDir::currentPath();
        settings.allowsUnsafeDriver = true;
    }

    ~BridgeTest() override
    {
        for (const char *name : {"KVSIM_RECORDING", "KVSIM_SPEED", "KVSIM_DELAY_MS", "TMPDIR"})
            unsetenv(name);
    }

    void start(bool canAsk = true)
    {
        running = std::make_unique<bridge::Bridge>(settings, canAsk, door, talk);
        ASSERT_EQ(running->start(), "");
    }

    std::unique_ptr<bridgerun::Talker> page(const char *origin = kShop) const
    {
        return std::make_unique<bridgerun::Talker>(running->port(), origin);
    }

    QByteArray token() const
    {
        QFile file(m_home.filePath(QStringLiteral("kvsignpad/bridge-%1.token").arg(running->port())));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().trimmed();
    }

    std::unique_ptr<bridgerun::Talker> program() const
    {
        return std::make_unique<bridgerun::Talker>(running->port(), "", "kvsign.v1, kvsign.token." + token());
    }

    /// What the bridge answers to these bytes until it closes the connection.
    QByteArray answerTo(const QByteArray &bytes) const { return answerFrom(running->port(), bytes); }
    static QByteArray answerFrom(quint16 port, const QByteArray &bytes)
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, port);
        socket.write(bytes);
        EXPECT_TRUE(bridgerun::until([&] { return socket.state() == QAbstractSocket::UnconnectedState; }));
        return socket.readAll();
    }

    /// The files below the user's home, where the temporary ones would be too.
    QStringList files() const
    {
        QStringList found;
        QDirIterator each(m_home.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (each.hasNext())
            found.append(QDir(m_home.path()).relativeFilePath(each.next()));
        return found;
    }

    int refused(bridge::Refusal why) const { return running->journal().count(why); }

    bridge::Settings settings;
    bridge::DoorLimits door;
    bridge::TalkLimits talk;
    std::unique_ptr<bridge::Bridge> running;

private:
    QTemporaryDir m_home;
};

#endif
