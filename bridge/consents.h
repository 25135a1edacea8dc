/// @file
/// To which pages the person at the desk has said "always": a file of the user's own.
#ifndef CONSENTS_H
#define CONSENTS_H

#include <QByteArray>
#include <QByteArrayList>
#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QString>

namespace bridge {

/// Holds what the file says, also when another process changes it. One that others could write says nothing.
class Consents : public QObject
{
    Q_OBJECT

public:
    /// @param path a file, an origin a line; need not exist
    explicit Consents(QString path, QObject *parent = nullptr);

    /// ~/.config/kvsignpad/consents
    static QString standardPath();

    bool has(const QByteArray &origin) const { return m_origins.contains(origin); }
    QByteArrayList all() const;
    bool add(const QByteArray &origin);
    bool revoke(const QByteArray &origin);

signals:
    void revoked(const QByteArray &origin);

private:
    void read();
    bool write(const QSet<QByteArray> &origins);

    QString m_path;
    QSet<QByteArray> m_origins;
    QFileSystemWatcher m_watcher;
};

} // namespace bridge

#endif
