/// @file
/// What the command line and the configuration files ask for.
#ifndef SETTINGS_H
#define SETTINGS_H

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace bridge {

/// The ports that a page tries, one bridge for each user of the machine.
inline constexpr quint16 kFirstPort = 47631;
inline constexpr quint16 kPortCount = 8;

struct Settings
{
    quint16 port = kFirstPort; ///< 0: any free one
    bool triesRange = true; ///< when it is taken, those after it
    QList<QByteArray> origins; ///< besides those of the lists
    bool asksConsent = true;
    bool readsLists = true;
    QString driver; ///< its folder
    bool allowsUnsafeDriver = false;
    bool isDemo = false;
    bool opensBrowser = true; ///< of a demo
    QString tokenFile; ///< empty: the usual place

    bool listsConsents = false;
    bool managesConsents = false; ///< the window that lists and revokes them
    QByteArray revoked;

    QString error; ///< what is wrong with the command line or a file; empty: nothing
};

/// Reads the arguments, the first of which is the program's name. --help and --version print and end the process.
Settings readSettings(const QStringList &arguments);

} // namespace bridge

#endif
