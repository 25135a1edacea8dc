#include "desksettings.h"

#include <QFileInfo>

namespace signdesk {

namespace {

constexpr int kMostDocuments = 8;
constexpr int kMostPlaces = 200;
const QLatin1String kRecent("recent");
const QLatin1String kPlaces("places");

} // namespace

DeskSettings::DeskSettings()
    : m_settings(QStringLiteral("korvane"), QStringLiteral("kv-sign-desk"))
{
}

QStringList DeskSettings::recentDocuments() const
{
    QStringList there;
    for (const QString &path : m_settings.value(kRecent).toStringList()) {
        if (QFileInfo::exists(path))
            there << path;
    }
    return there;
}

void DeskSettings::addRecentDocument(const QString &path)
{
    QStringList all = m_settings.value(kRecent).toStringList();
    all.removeAll(path);
    all.prepend(path);
    m_settings.setValue(kRecent, QStringList(all.mid(0, kMostDocuments)));
}

/// A list of rows, the newest first: identity, page, x, y, width, height, form field.
std::optional<RememberedPlace> DeskSettings::placeOf(const QString &identity) const
{
    for (const QVariant &entry : m_settings.value(kPlaces).toList()) {
        const QVariantList row = entry.toList();
        if (row.size() != 7 || row[0].toString() != identity)
            continue;
        return RememberedPlace{row[1].toInt(),
            QRectF(row[2].toDouble(), row[3].toDouble(), row[4].toDouble(), row[5].toDouble()), row[6].toString()};
    }
    return std::nullopt;
}

void DeskSettings::rememberPlace(const QString &identity, const RememberedPlace &place)
{
    const QRectF &field = place.field;
    QVariantList rows{QVariant(
        QVariantList{identity, place.page, field.x(), field.y(), field.width(), field.height(), place.formField})};
    for (const QVariant &entry : m_settings.value(kPlaces).toList()) {
        if (entry.toList().value(0).toString() != identity && rows.size() < kMostPlaces)
            rows << entry;
    }
    m_settings.setValue(kPlaces, rows);
}

QVariant DeskSettings::value(const char *key) const
{
    return m_settings.value(QLatin1String(key));
}

void DeskSettings::setValue(const char *key, const QVariant &value)
{
    m_settings.setValue(QLatin1String(key), value);
}

} // namespace signdesk
