#include "safefile.h"

#include "trouble.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <algorithm>

namespace signdesk {

namespace {

struct FileWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SafeFile)
};

Trouble cannotWrite(const QString &path)
{
    const QString shown = QDir::toNativeSeparators(path);
    const QFileInfo directory(QFileInfo(path).path());
    if (!directory.isDir())
        return {FileWords::tr("%1 was not written: there is no such folder.").arg(shown),
            FileWords::tr("Choose another folder. The signature is still here.")};
    if (!directory.isWritable())
        return {FileWords::tr("%1 was not written: you may not write in this folder.").arg(shown),
            FileWords::tr("Choose another folder. The signature is still here.")};
    return {FileWords::tr("%1 could not be written.").arg(shown),
        FileWords::tr("See that there is space on the disk and that no folder or protected file has this name. "
                      "The signature is still here.")};
}

constexpr int kPiece = 1 << 20;

bool writeAll(QSaveFile &file, const QByteArray &content, const ShowBytes &show)
{
    for (int done = 0; done < content.size(); done += kPiece) {
        show(done, content.size());
        const int size = std::min(kPiece, content.size() - done);
        if (file.write(content.constData() + done, size) != size)
            return false;
    }
    show(content.size(), content.size());
    return file.flush(); // commit() does not notice when the last bytes find no room
}

/// Whether the file has exactly this content.
bool holds(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() != content.size())
        return false;
    for (int done = 0; done < content.size(); done += kPiece) {
        const int size = std::min(kPiece, content.size() - done);
        if (file.read(kPiece) != QByteArray::fromRawData(content.constData() + done, size))
            return false;
    }
    return true;
}

} // namespace

void writeFile(const QString &path, const QByteArray &content, const ShowBytes &show)
{
    const QFileInfo there(path);
    if (there.exists() && !there.isFile() && !there.isDir()) // a rename would replace the device or pipe by a file
        throw Trouble{FileWords::tr("%1 was not written: it is no file.").arg(QDir::toNativeSeparators(path)),
            FileWords::tr("Choose another name. The signature is still here.")};
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw cannotWrite(path);
    if (!writeAll(file, content, show) || !file.commit() || !holds(path, content))
        throw cannotWrite(path);
}

bool hasRoomForTemporary(qint64 bytes)
{
    QTemporaryFile file;
    const QByteArray piece(1 << 20, 'x'); // real bytes, because a hole takes no room
    bool isWritten = !QDir::tempPath().isEmpty() && file.open(); // empty: TMPDIR is no folder
    for (qint64 left = bytes; isWritten && left > 0; left -= piece.size())
        isWritten = file.write(piece) == piece.size();
    return isWritten && file.flush();
}

} // namespace signdesk
