#include "safefile.h"

#include "trouble.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace signdesk {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SafeFile)
};

Trouble cannotWrite(const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    const QFileInfo directory(QFileInfo(path).path());
    if (!directory.isDir())
        return {Words::tr("%1 was not written: there is no such folder.").arg(shown),
            Words::tr("Choose another folder. The signature is still here.")};
    if (!directory.isWritable())
        return {Words::tr("%1 was not written: you may not write in this folder.").arg(shown),
            Words::tr("Choose another folder. The signature is still here.")};
    return {Words::tr("%1 could not be written.").arg(shown),
        Words::tr("See that there is space on the disk and that no folder or protected file has this name. "
                  "The signature is still here.")};
}

} // namespace

void writeFile(const QString &path, const std::function<bool(QIODevice &)> &write)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw cannotWrite(path);
    if (!write(file) || !file.commit())
        throw cannotWrite(path);
}

} // namespace signdesk
