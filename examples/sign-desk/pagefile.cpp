#include "pagefile.h"

#include "trouble.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

namespace signdesk {

namespace {

struct PageFileWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::Pages)
};

constexpr qint64 kMostBytes = 1 << 30; ///< the whole file is kept in memory

/// Opens the file without waiting, even for the writer of a pipe. Returns -1 when it must not be read.
int opened(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

} // namespace

PageFile readPageFile(const QString &path)
{
    const QFileInfo there(path);
    if (!there.exists())
        throw unreadable(path, PageFileWords::tr("there is no such file."));
    if (!there.isFile())
        throw unreadable(path, PageFileWords::tr("it is no file."));
    QFile file;
    const int descriptor = opened(path);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        throw unreadable(path, PageFileWords::tr("you may not read it."));
    if (file.isSequential()) // a pipe has replaced it meanwhile
        throw unreadable(path, PageFileWords::tr("it is no file."));
    PageFile page{path, {}, file.fileTime(QFileDevice::FileModificationTime), file.size()};
    if (page.size > kMostBytes)
        throw unreadable(path, PageFileWords::tr("it is too large."));
    page.content = file.read(kMostBytes);
    page.digest = QCryptographicHash::hash(page.content, QCryptographicHash::Sha256);
    return page;
}

bool PageFile::hasChanged() const
{
    const QFileInfo now(path);
    return now.exists() && (now.size() != size || now.lastModified() != time);
}

Trouble unreadable(const QString &path, const QString &why)
{
    return {PageFileWords::tr("%1 cannot be opened: %2").arg(QDir::toNativeSeparators(path), why),
        PageFileWords::tr("Choose another file; the page shown before is still there.")};
}

} // namespace signdesk
