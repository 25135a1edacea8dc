#include "origins.h"

#include "driverfile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

namespace bridge {

namespace {

constexpr qint64 kLargestList = 1024 * 1024;

void readList(const QString &path, OriginLists &lists)
{
    QFile file(path);
    if (const QString weakness = weaknessOf(path); !weakness.isEmpty()) {
        lists.complaints.append(weakness);
        return;
    }
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestList) {
        lists.complaints.append(path + QStringLiteral(" is passed over: it cannot be read, or is too large"));
        return;
    }
    int number = 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        ++number;
        const QByteArray text = line.left(line.indexOf('#') < 0 ? line.size() : line.indexOf('#')).trimmed();
        const QByteArray origin = checkedOrigin(text);
        if (!origin.isEmpty())
            lists.origins.insert(origin);
        else if (!text.isEmpty())
            lists.complaints.append(
                QStringLiteral("%1:%2 is no origin, such as https://shop.example").arg(path).arg(number));
    }
}

} // namespace

QByteArray checkedOrigin(const QByteArray &text)
{
    static const QRegularExpression shape(QStringLiteral(
        "\\A(https?)://([a-z0-9_](?:[a-z0-9_.-]{0,250}[a-z0-9_])?|\\[[0-9a-f:]{2,39}\\])(?::([1-9][0-9]{0,4}))?\\z"));
    const QRegularExpressionMatch match = shape.match(QString::fromLatin1(text).toLower());
    if (!match.hasMatch())
        return {};
    const QString port = match.captured(3);
    const QString own = match.captured(1) == QLatin1String("https") ? QStringLiteral("443") : QStringLiteral("80");
    if (port.toInt() > 65535 || port == own || match.captured(2).contains(QLatin1String("..")))
        return {};
    return match.captured(0).toLatin1();
}

QString weaknessOf(const QString &path)
{
    const auto weakness = driverfile::weaknessOf(QFile::encodeName(path).toStdString());
    return weakness ? path + QStringLiteral(" is passed over: ") + QFile::decodeName(weakness->sentence().c_str())
                    : QString();
}

OriginLists readOrigins(const QStringList &folders)
{
    OriginLists lists;
    for (const QString &folder : folders) {
        const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
        for (const QString &name : names) {
            if (!name.endsWith('~') && !name.contains(QLatin1String(".dpkg-")))
                readList(folder + '/' + name, lists);
        }
    }
    return lists;
}

QStringList originFolders()
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return {QStringLiteral("/etc/kvsignpad/origins.d"), own + QStringLiteral("/kvsignpad/origins.d")};
}

} // namespace bridge
