#include "passwords.h"

#include "failure.h"
#include "interruption.h"
#include "plainio.h"

#include <QScopeGuard>

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int kLongest = 4096; // bytes
constexpr int kLookEvery = 100; // milliseconds

QByteArray firstLine(const QString &path)
{
    const plainio::Descriptor file = plainio::openForReading(path);
    QByteArray text;
    for (QByteArray piece = plainio::read(file.number(), path, {}); !piece.isEmpty() && text.size() <= kLongest;
         piece = plainio::read(file.number(), path, {}))
        text += piece;
    const int end = text.indexOf('\n');
    if (end > kLongest || (end < 0 && text.size() > kLongest))
        throw failed(QString("%1: the first line is too long for a password").arg(path));
    text = end < 0 ? text : text.left(end);
    return text.endsWith('\r') ? text.chopped(1) : text;
}

/// Waits until read() will not block: a signal that came just before would not end it.
void waitForInput(int terminal)
{
    pollfd waiting{terminal, POLLIN, 0};
    int ready = 0;
    while (ready == 0 || (ready < 0 && errno == EINTR)) {
        throwIfInterrupted();
        ready = poll(&waiting, 1, kLookEvery);
    }
}

QByteArray lineFrom(int terminal)
{
    QByteArray line;
    for (;;) {
        char byte = 0;
        waitForInput(terminal);
        const ssize_t size = read(terminal, &byte, 1);
        throwIfInterrupted();
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0 || byte == '\n' || line.size() >= kLongest)
            return line;
        line += byte;
    }
}

/// Asks without showing what is typed.
QByteArray askTerminal(const QString &what, const Option &fileOption)
{
    const plainio::Descriptor terminal(open("/dev/tty", O_RDWR | O_CLOEXEC));
    termios shown = {};
    if (!terminal.isOpen() || tcgetattr(terminal.number(), &shown) != 0)
        throw failed(QString("%1 needs a password, and there is no terminal to ask; put it into a file for --%2")
                         .arg(what, namesOf(fileOption).first()));
    termios hidden = shown;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    const auto restore = qScopeGuard([&] {
        tcsetattr(terminal.number(), TCSANOW, &shown);
        (void)!write(terminal.number(), "\n", 1);
    });
    tcsetattr(terminal.number(), TCSAFLUSH, &hidden);
    const QByteArray question = QString("Password of %1: ").arg(what).toLocal8Bit();
    plainio::writeAll(terminal.number(), question.constData(), question.size(), "the terminal");
    return lineFrom(terminal.number());
}

} // namespace

QByteArray passwordOf(const QString &what, const Arguments &arguments, const Option &fileOption)
{
    return arguments.isSet(fileOption) ? firstLine(arguments.value(fileOption)) : askTerminal(what, fileOption);
}

QByteArray documentPassword(const Arguments &arguments)
{
    return arguments.isSet(kDocumentPasswordOption) ? firstLine(arguments.value(kDocumentPasswordOption))
                                                    : QByteArray();
}
