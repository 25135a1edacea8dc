#include "settings.h"

#include "journal.h"
#include "origins.h"
#include "simulatorplace.h"

#include <QCommandLineParser>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

namespace bridge {

namespace {

struct OptionRow
{
    const char *name;
    const char *meaning;
    const char *value; ///< what its value is called; null without one
};

constexpr OptionRow kOptions[] = {
    {"port", "Listen on this port of loopback; 0: on any free one.", "number"},
    {"allow-origin", "Let pages of this origin in, besides the lists. May be given again.", "origin"},
    {"no-lists", "Do not read the lists of origins.", nullptr},
    {"no-consent", "Do not ask the person at this computer.", nullptr},
    {"driver", "The folder of the pad's driver, libkvsignpaddrv.so; simulator: the simulated pad.", "directory"},
    {"unsafe-driver", "Load a driver that others may write.", nullptr},
    {"token-file", "Write the token for programs to this file, in a private folder.", "file"},
    {"demo", "Serve the example pages, and open them in the browser.", nullptr},
    {"no-browser", "With --demo: only say where the pages are.", nullptr},
    {"consents", "Show who may use the pad, in a window where it can be revoked.", nullptr},
    {"list-consents", "Print to whom you have said \"always\".", nullptr},
    {"revoke", "Take back an \"always\".", "origin"},
};

void addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Lets web pages that the administrator or you have listed use the signature pad of this computer."));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const OptionRow &row : kOptions)
        parser.addOption(
            QCommandLineOption(QLatin1String(row.name), QLatin1String(row.meaning), QLatin1String(row.value)));
}

/// The driver's folder of a file; the last file that names one wins.
void readFiles(Settings &settings)
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    for (const QString &path :
        {QStringLiteral("/etc/kvsignpad/bridge.conf"), own + QStringLiteral("/kvsignpad/bridge.conf")}) {
        if (!QFile::exists(path))
            continue;
        if (const QString weakness = weaknessOf(path); !weakness.isEmpty()) {
            Journal::say(weakness);
            continue;
        }
        const QSettings file(path, QSettings::IniFormat);
        settings.driver = file.value(QStringLiteral("driver"), settings.driver).toString();
    }
}

void readPort(const QString &text, Settings &settings)
{
    bool isNumber = false;
    settings.port = text.toUShort(&isNumber);
    if (!isNumber)
        settings.error = QStringLiteral("a port is a number from 0 to 65535");
}

void readOrigins(const QStringList &texts, Settings &settings)
{
    for (const QString &text : texts) {
        const QByteArray origin = checkedOrigin(text.toLatin1());
        if (origin.isEmpty())
            settings.error = text + QStringLiteral(" is no origin, such as https://shop.example");
        settings.origins.append(origin);
    }
}

/// The simulator is there by its word, and for a demo that names no driver.
void findDriver(Settings &settings)
{
    const std::string wanted = settings.driver.isEmpty() && settings.isDemo
        ? simulatorplace::kWord
        : QFile::encodeName(settings.driver).toStdString();
    const std::optional<std::string> folder = simulatorplace::folderOf(wanted);
    if (folder)
        settings.driver = QFile::decodeName(folder->c_str());
    else if (!settings.driver.isEmpty())
        settings.error = QLatin1String(simulatorplace::kMissing);
}

} // namespace

Settings readSettings(const QStringList &arguments)
{
    Settings settings;
    QCommandLineParser parser;
    addOptions(parser);
    parser.process(arguments);
    readFiles(settings);
    const auto isSet = [&](const char *name) { return parser.isSet(QLatin1String(name)); };
    if (isSet("port"))
        readPort(parser.value(QStringLiteral("port")), settings);
    readOrigins(parser.values(QStringLiteral("allow-origin")), settings);
    settings.readsLists = !isSet("no-lists");
    settings.asksConsent = !isSet("no-consent");
    if (isSet("driver"))
        settings.driver = parser.value(QStringLiteral("driver"));
    settings.allowsUnsafeDriver = isSet("unsafe-driver");
    settings.tokenFile = parser.value(QStringLiteral("token-file"));
    settings.isDemo = isSet("demo");
    settings.opensBrowser = !isSet("no-browser");
    settings.managesConsents = isSet("consents");
    settings.listsConsents = isSet("list-consents");
    settings.revoked = parser.value(QStringLiteral("revoke")).toLatin1();
    settings.triesRange = !isSet("port");
    findDriver(settings);
    if (!parser.positionalArguments().isEmpty())
        settings.error = QStringLiteral("there are no arguments besides the options");
    return settings;
}

} // namespace bridge
