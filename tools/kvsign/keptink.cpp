#include "keptink.h"

#include "failure.h"
#include "plainio.h"

#include <documents/problem.h>

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <unistd.h>

namespace {

constexpr int kMostNames = 1000;

/// Creates a file that did not exist.
plainio::Descriptor newFile(const QString &base, QString &name)
{
    for (int number = 1; number <= kMostNames; ++number) {
        name = number == 1 ? base + ".ink" : QString("%1-%2.ink").arg(base).arg(number);
        plainio::Descriptor file(
            open(QFile::encodeName(name).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
        if (file.isOpen() || errno != EEXIST)
            return file;
    }
    return {};
}

/// Writes the ink, and says for the message where it is.
QString kept(const QByteArray &record, const QString &output)
{
    QString name;
    const plainio::Descriptor file = newFile(output, name);
    if (!file.isOpen())
        return "; the ink is lost, for it could not be kept either";
    try {
        plainio::writeAll(file.number(), record.constData(), record.size(), name);
        if (fsync(file.number()) == 0)
            return QString("; the ink is kept in %1: sign again with --ink").arg(name);
    } catch (const Failure &) { // as below
    }
    unlink(QFile::encodeName(name).constData());
    return "; the ink is lost, for it could not be kept either";
}

} // namespace

void keepingInk(const QByteArray &record, const QString &output, const std::function<void()> &work)
{
    try {
        work();
    } catch (Failure &failure) {
        failure.message += kept(record, output);
        throw;
    } catch (documents::Problem &problem) {
        problem.message += kept(record, output);
        throw;
    } catch (const std::bad_alloc &) {
        throw failed("there is not enough memory" + kept(record, output));
    }
}
