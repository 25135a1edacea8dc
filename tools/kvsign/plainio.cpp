#include "plainio.h"

#include "failure.h"
#include "interruption.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace plainio {

namespace {

constexpr int kReadAtOnce = 1 << 16;
constexpr int kLook = 50; // milliseconds until the next look for an interruption
constexpr qint64 kPatience = 1000; // milliseconds before a wait is explained

/// Waits in small steps, so that it can be interrupted, and says once what it waits for.
class Wait
{
public:
    explicit Wait(const QString &explanation)
        : m_explanation(explanation)
    {
        m_waiting.start();
    }

    void step()
    {
        throwIfInterrupted();
        if (m_explanation.isEmpty() || m_waiting.elapsed() < kPatience)
            return;
        std::fprintf(stderr, "kvsign: %s\n", m_explanation.toLocal8Bit().constData());
        m_explanation.clear();
    }

private:
    QString m_explanation;
    QElapsedTimer m_waiting;
};

bool isPipe(int descriptor)
{
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && S_ISFIFO(status.st_mode);
}

void waitFor(int descriptor, short event, const QString &explanation)
{
    Wait wait(explanation);
    pollfd state = {descriptor, event, 0};
    while (poll(&state, 1, kLook) <= 0)
        wait.step();
}

int openFile(const QString &path, int flags)
{
    return open(QFile::encodeName(path).constData(), flags | O_CLOEXEC | O_NOCTTY);
}

} // namespace

Descriptor &Descriptor::operator=(Descriptor &&other) noexcept
{
    std::swap(m_number, other.m_number);
    return *this;
}

Descriptor::~Descriptor()
{
    if (m_number >= 0)
        close(m_number);
}

int Descriptor::take()
{
    const int number = m_number;
    m_number = -1;
    return number;
}

void throwErrno(const QString &name)
{
    throw failed(QString("%1: %2").arg(name, QString::fromLocal8Bit(std::strerror(errno))));
}

Descriptor openForReading(const QString &path)
{
    Descriptor file(openFile(path, O_RDONLY | O_NONBLOCK));
    if (!file.isOpen())
        throwErrno(path);
    return file;
}

Descriptor openForWriting(const QString &path)
{
    Wait wait(QString("%1: waiting for a program that reads from this pipe").arg(path));
    Descriptor file(openFile(path, O_WRONLY | O_NONBLOCK));
    while (!file.isOpen() && (errno == ENXIO || errno == EINTR)) {
        struct stat status = {};
        if (stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISFIFO(status.st_mode))
            break;
        poll(nullptr, 0, kLook);
        wait.step();
        file = Descriptor(openFile(path, O_WRONLY | O_NONBLOCK));
    }
    if (!file.isOpen())
        throwErrno(path);
    return file;
}

QByteArray read(int descriptor, const QString &name, const QString &explanation)
{
    QByteArray bytes(kReadAtOnce, Qt::Uninitialized);
    for (;;) {
        if (isPipe(descriptor))
            waitFor(descriptor, POLLIN, explanation);
        const ssize_t size = ::read(descriptor, bytes.data(), static_cast<size_t>(bytes.size()));
        throwIfInterrupted();
        if (size >= 0) {
            bytes.truncate(static_cast<int>(size));
            return bytes;
        }
        if (errno == EAGAIN)
            waitFor(descriptor, POLLIN, {});
        else if (errno != EINTR)
            throwErrno(name);
    }
}

void writeAll(int descriptor, const char *bytes, qint64 count, const QString &name)
{
    while (count > 0) {
        const ssize_t size = write(descriptor, bytes, static_cast<size_t>(count));
        if (size < 0 && errno == EAGAIN)
            waitFor(descriptor, POLLOUT, {});
        else if (size < 0 && errno != EINTR)
            throwErrno(name);
        if (size > 0) {
            bytes += size;
            count -= size;
        } else {
            throwIfInterrupted();
        }
    }
}

QString temporaryFolder()
{
    QString folder = QDir::tempPath(); // empty when TMPDIR names nothing
    if (!QFileInfo(folder).isDir())
        throw failed(QString("TMPDIR=%1: there is no such folder").arg(qEnvironmentVariable("TMPDIR")));
    return folder;
}

Descriptor unnamedFile()
{
    const QString directory = temporaryFolder();
    const QByteArray folder = QFile::encodeName(directory);
    Descriptor file(open(folder.constData(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0600));
    if (!file.isOpen()) { // some file systems have no files without a name
        QByteArray name = folder + "/kvsign.XXXXXX";
        file = Descriptor(mkostemp(name.data(), O_CLOEXEC));
        if (file.isOpen())
            unlink(name.constData());
    }
    if (!file.isOpen())
        throwErrno(directory);
    return file;
}

} // namespace plainio
