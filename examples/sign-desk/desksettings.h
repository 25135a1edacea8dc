/// @file
/// What the desk remembers from one day to the next: documents, folders, and where forms are signed. Never a password.
#ifndef DESKSETTINGS_H
#define DESKSETTINGS_H

#include <QRectF>
#include <QSettings>
#include <QStringList>

#include <optional>

namespace signdesk {

/// Where a form was signed last.
struct RememberedPlace
{
    int page = 0;
    QRectF field; ///< in points
    QString formField; ///< instead of the field; empty for none
};

class DeskSettings
{
public:
    DeskSettings();

    /// The newest first; those that are gone are left out.
    QStringList recentDocuments() const;
    void addRecentDocument(const QString &path);

    std::optional<RememberedPlace> placeOf(const QString &identity) const;
    void rememberPlace(const QString &identity, const RememberedPlace &place);

    /// One of the desk's own values, such as the pad's model.
    QVariant value(const char *key) const;
    void setValue(const char *key, const QVariant &value);

private:
    QSettings m_settings;
};

} // namespace signdesk

#endif
