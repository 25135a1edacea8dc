#include "screen.h"

#include <QGuiApplication>
#include <QStringList>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace screen {

namespace {

// The child's last words, behind what Qt complained of. Without one of them it crashed.
constexpr char kHasScreen = '\1';
constexpr char kHasNone = '\2';

/// All that comes up to one of the last words, or to the end.
QByteArray readAll(int pipe)
{
    QByteArray text;
    char letter = 0;
    while (!text.endsWith(kHasScreen) && !text.endsWith(kHasNone)) {
        const ssize_t size = read(pipe, &letter, 1);
        if (size > 0)
            text += letter;
        else if (size == 0 || errno != EINTR)
            break;
    }
    return text;
}

/// Qt's messages go into the pipe. The application ends as it should, because some platforms take a console over.
[[noreturn]] void tryInChild(int complaints, int argc, char **argv)
{
    for (int signal = 1; signal <= SIGRTMAX; ++signal)
        std::signal(signal, SIG_DFL);
    const rlimit noCore = {0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    dup2(complaints, STDERR_FILENO);
    {
        const QGuiApplication application(argc, argv);
        const char verdict = QGuiApplication::screens().isEmpty() ? kHasNone : kHasScreen;
        static_cast<void>(!write(complaints, &verdict, 1));
    }
    _exit(0);
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
    const QByteArray said = readAll(ends[0]);
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
    close(ends[0]); // now: the child might complain at its end, and would be ended by that
    if (child < 0 || said.endsWith(kHasScreen))
        return {};
    const QByteArray name = qgetenv("QT_QPA_PLATFORM");
    const QString platform = name.isEmpty() ? QString("platform") : QString("platform \"%1\"").arg(name.constData());
    if (said.endsWith(kHasNone))
        return QString("Qt's %1 finds no screen").arg(platform);
    const QStringList lines = QString::fromLocal8Bit(said).split('\n', Qt::SkipEmptyParts);
    const QStringList available = lines.filter("Available platform plugins");
    return QString("Qt cannot start the %1: %2").arg(platform, (lines.mid(0, 1) + available).join("; "));
}

} // namespace screen
