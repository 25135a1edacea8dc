#include "screen.h"

#include <QGuiApplication>
#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace screen {

namespace {

constexpr int kNoScreen = 3; // the child's exit code when Qt starts, but has no screen

QString readAll(int pipe)
{
    QByteArray text;
    char piece[4096];
    for (ssize_t size = 0; (size = read(pipe, piece, sizeof piece)) > 0 || (size < 0 && errno == EINTR);)
        text.append(piece, static_cast<int>(std::max<ssize_t>(size, 0)));
    return QString::fromLocal8Bit(text);
}

/// Qt's messages go into the pipe.
[[noreturn]] void tryInChild(int complaints, int argc, char **argv)
{
    for (const int signal : {SIGABRT, SIGSEGV, SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, SIG_DFL);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    dup2(complaints, STDOUT_FILENO);
    dup2(complaints, STDERR_FILENO);
    const QGuiApplication application(argc, argv);
    _exit(QGuiApplication::screens().isEmpty() ? kNoScreen : 0);
}

} // namespace

QString why(int argc, char **argv)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0)
        tryInChild(ends[1], argc, argv);
    close(ends[1]);
    const QString complaints = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    if (child < 0 || status == 0)
        return {};
    const QString platform = QString::fromLocal8Bit(qgetenv("QT_QPA_PLATFORM"));
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoScreen)
        return QString("Qt's platform \"%1\" finds no screen").arg(platform);
    const QStringList lines = complaints.split('\n', Qt::SkipEmptyParts);
    const QStringList available = lines.filter("Available platform plugins");
    return QString("Qt cannot start the platform \"%1\": %2").arg(platform, (lines.mid(0, 1) + available).join("; "));
}

} // namespace screen
