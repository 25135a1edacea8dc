#include "consents.h"

#include "journal.h"
#include "origins.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace bridge {

Consents::Consents(QString path, QObject *parent)
    : QObject(parent)
    , m_path(std::move(path))
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!QDir(folder).exists() && QDir().mkpath(folder))
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // The folder too: the file is replaced as a whole, or comes to be.
    m_watcher.addPath(folder);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &Consents::read);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &Consents::read);
    read();
}

QString Consents::standardPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/kvsignpad/consents");
}

QByteArrayList Consents::all() const
{
    QByteArrayList sorted(m_origins.begin(), m_origins.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

bool Consents::add(const QByteArray &origin)
{
    QSet<QByteArray> origins = m_origins;
    origins.insert(origin);
    return write(origins) && has(origin);
}

bool Consents::revoke(const QByteArray &origin)
{
    QSet<QByteArray> origins = m_origins;
    return origins.remove(origin) && write(origins);
}

bool Consents::write(const QSet<QByteArray> &origins)
{
    QByteArrayList lines(origins.begin(), origins.end());
    std::sort(lines.begin(), lines.end());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    for (const QByteArray &line : lines)
        file.write(line + '\n');
    const bool isWritten = file.commit();
    read();
    return isWritten;
}

void Consents::read()
{
    const QSet<QByteArray> before = m_origins;
    m_origins.clear();
    QFile file(m_path);
    const QString weakness = QFile::exists(m_path) ? weaknessOf(m_path) : QString();
    if (!weakness.isEmpty()) {
        Journal::say(weakness);
    } else if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (const QByteArray origin = checkedOrigin(line.trimmed()); !origin.isEmpty())
                m_origins.insert(origin);
        }
        if (!m_watcher.files().contains(m_path))
            m_watcher.addPath(m_path);
    }
    for (const QByteArray &origin : before) {
        if (!m_origins.contains(origin))
            emit revoked(origin);
    }
}

} // namespace bridge
