#include "display.h"

#include "failure.h"
#include "screen.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QPluginLoader>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>

#include <netdb.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int kFirstXPort = 6000;

/// A socket that closes itself.
class Socket
{
public:
    explicit Socket(int family)
        : m_socket(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
    }
    ~Socket()
    {
        if (m_socket >= 0)
            close(m_socket);
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    bool connectsTo(const sockaddr *address, socklen_t length) const
    {
        return m_socket >= 0 && connect(m_socket, address, length) == 0;
    }

private:
    int m_socket;
};

/// A socket name that begins with a zero byte is abstract: it is not in the file system.
bool answersAt(const QByteArray &path)
{
    sockaddr_un address = {};
    if (path.size() >= static_cast<int>(sizeof address.sun_path))
        return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path)) + static_cast<socklen_t>(path.size());
    return Socket(AF_UNIX).connectsTo(reinterpret_cast<const sockaddr *>(&address), length);
}

bool answersAt(const QByteArray &host, int port)
{
    addrinfo wanted = {};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (getaddrinfo(host.constData(), QByteArray::number(port).constData(), &wanted, &found) != 0)
        return false;
    bool answers = false;
    for (const addrinfo *one = found; one != nullptr && !answers; one = one->ai_next)
        answers = Socket(one->ai_family).connectsTo(one->ai_addr, one->ai_addrlen);
    freeaddrinfo(found);
    return answers;
}

bool xAnswers(const QString &display)
{
    static const QRegularExpression form("^(?:(.*)/)?([^/:]*):(\\d+)(?:\\.\\d+)?$");
    const QRegularExpressionMatch match = form.match(display);
    if (!match.hasMatch())
        return false;
    const QByteArray host = match.captured(2).toLocal8Bit();
    const int number = match.captured(3).toInt();
    if (!host.isEmpty() && host != "unix")
        return answersAt(host, kFirstXPort + number);
    const QByteArray path = "/tmp/.X11-unix/X" + QByteArray::number(number);
    return answersAt(QByteArray(1, '\0') + path) || answersAt(path);
}

/// The platforms that Qt's plugins name, wherever Qt looks for them.
QStringList platforms()
{
    QStringList folders{qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH"),
        QLibraryInfo::location(QLibraryInfo::PluginsPath) + "/platforms"};
    for (const QString &path : qEnvironmentVariable("QT_PLUGIN_PATH").split(':', Qt::SkipEmptyParts))
        folders += path + "/platforms";
    folders.removeAll(QString());
    QStringList names;
    for (const QString &folder : folders) {
        for (const QFileInfo &plugin : QDir(folder).entryInfoList({"*.so"}, QDir::Files)) {
            const QJsonObject data = QPluginLoader(plugin.filePath()).metaData()["MetaData"].toObject();
            const QJsonArray keys = data["Keys"].toArray();
            for (const QJsonValue &key : keys)
                names += key.toString().toLower();
        }
    }
    return names;
}

/// QT_QPA_PLATFORM may name several, each with parameters: "wayland;offscreen:size=100x100".
bool isKnownPlatform(const QString &platform)
{
    const QStringList known = platforms();
    const QStringList wanted = platform.split(';');
    return std::any_of(wanted.begin(), wanted.end(),
        [&](const QString &one) { return known.contains(one.section(':', 0, 0).toLower()); });
}

} // namespace

DisplayState displayState()
{
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !isKnownPlatform(platform))
        return {false, QString("Qt has no platform \"%1\", which QT_QPA_PLATFORM names").arg(platform)};
    if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland"))
        return {true, QString("Qt's platform \"%1\", by QT_QPA_PLATFORM").arg(platform)};
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QString display = qEnvironmentVariable("DISPLAY");
    if (platform.startsWith("wayland") || (platform.isEmpty() && display.isEmpty() && !wayland.isEmpty())) {
        const QString path =
            wayland.startsWith('/') ? wayland : qEnvironmentVariable("XDG_RUNTIME_DIR") + "/" + wayland;
        const bool answers = answersAt(path.toLocal8Bit());
        return {
            answers, QString("the Wayland display \"%1\" %2").arg(wayland, answers ? "answers" : "does not answer")};
    }
    if (display.isEmpty())
        return {false, "DISPLAY is not set"};
    if (!xAnswers(display))
        return {false, QString("the X display %1 does not answer").arg(display)};
    return {true, QString("the X display %1 answers").arg(display)};
}

void needDisplay()
{
    const DisplayState state = displayState();
    if (!state.isThere)
        throw failed(QString("no window can be shown: %1; --frames needs none").arg(state.what));
    char name[] = "kvsign", *arguments[] = {name, nullptr};
    const QString why = screen::why(1, arguments);
    if (!why.isEmpty())
        throw failed(QString("no window can be shown: %1; --frames needs none").arg(why));
}
