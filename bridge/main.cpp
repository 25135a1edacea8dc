#include "bridge.h"
#include "consentlist.h"
#include "demo.h"
#include "screen.h"

#include <QApplication>
#include <QSocketNotifier>

#include <csignal>
#include <cstdio>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

/// Without a screen, as in a service that starts before the desktop, the person cannot be asked.
bool findScreen()
{
    const bool hasScreen = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!hasScreen)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return hasScreen;
}

sigset_t endingSignals()
{
    sigset_t wanted;
    sigemptyset(&wanted);
    sigaddset(&wanted, SIGTERM);
    sigaddset(&wanted, SIGINT);
    return wanted;
}

/// SIGTERM and SIGINT, which are blocked, close the pad in order.
void endOnSignals(QObject *parent)
{
    const sigset_t wanted = endingSignals();
    const int descriptor = signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK);
    auto *notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, parent);
    QObject::connect(notifier, &QSocketNotifier::activated, parent, [] { QCoreApplication::quit(); });
}

int listConsents()
{
    for (const QByteArray &origin : bridge::Consents(bridge::Consents::standardPath()).all())
        std::puts(origin.constData());
    return 0;
}

int revoke(const QByteArray &origin)
{
    if (bridge::Consents(bridge::Consents::standardPath()).revoke(origin))
        return 0;
    std::fputs("kv-sign-bridge: there is no such consent\n", stderr);
    return 1;
}

int serve(const bridge::Settings &settings, bool hasScreen)
{
    bridge::Bridge bridge(settings, hasScreen);
    const QString trouble = bridge.start();
    if (!trouble.isEmpty()) {
        std::fprintf(stderr, "kv-sign-bridge: %s\n", qPrintable(trouble));
        return 1;
    }
    if (settings.isDemo)
        demo::show(bridge.port(), settings.opensBrowser);
    return QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    const bool hasScreen = findScreen();
    if (!screen::why(argc, argv).isEmpty()) {
        std::fprintf(stderr, "kv-sign-bridge: %s\n", screen::kMissing);
        return 1;
    }
    // Before there is a thread, so that no other takes them.
    const sigset_t wanted = endingSignals();
    sigprocmask(SIG_BLOCK, &wanted, nullptr);
    QApplication application(argc, argv);
    endOnSignals(&application);
    QApplication::setApplicationName(QStringLiteral("kv-sign-bridge"));
    QApplication::setApplicationVersion(QStringLiteral(KV_BRIDGE_VERSION));
    QApplication::setQuitOnLastWindowClosed(false);
    const bridge::Settings settings = bridge::readSettings(QApplication::arguments());
    if (!settings.error.isEmpty()) {
        std::fprintf(stderr, "kv-sign-bridge: %s\n", qPrintable(settings.error));
        return 2;
    }
    if (settings.listsConsents)
        return listConsents();
    if (!settings.revoked.isEmpty())
        return revoke(settings.revoked);
    if (settings.managesConsents) {
        bridge::Consents consents(bridge::Consents::standardPath());
        return bridge::ConsentList(consents).exec();
    }
    return serve(settings, hasScreen);
}
