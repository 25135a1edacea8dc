#include "../display.h"
#include "findings.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <QLibrary>
#include <QLibraryInfo>
#include <QPluginLoader>

namespace {

QString platformPlugin(const QString &name)
{
    return QDir(QLibraryInfo::location(QLibraryInfo::PluginsPath)).filePath("platforms/libq" + name + ".so");
}

struct Module
{
    const char *name;
    const char *package;
};

constexpr Module kModules[] = {
    {"Core", "libqt5core5a"}, {"Gui", "libqt5gui5"}, {"Widgets", "libqt5widgets5"}, {"Svg", "libqt5svg5"}};

constexpr const char *kImageFormats[] = {"bmp", "jpg", "png"};

} // namespace

void lookAtQt(Findings &findings)
{
    for (const Module &module : kModules) {
        const QString subject = QString("Qt module %1").arg(module.name);
        QLibrary library(QString("Qt5%1").arg(module.name), 5);
        if (library.load())
            findings.push_back(good(subject, qVersion()));
        else
            findings.push_back(bad(subject, library.errorString(), QString("apt-get install %1").arg(module.package)));
    }
    const QVersionNumber built(5, 15);
    if (QLibraryInfo::version() < built)
        findings.push_back(bad("Qt version", qVersion(), "install Qt 5.15, which the library is built for"));
}

void lookAtImageFormats(Findings &findings)
{
    for (const char *format : kImageFormats) {
        const QString subject = QString("image format %1").arg(format);
        const bool reads = QImageReader::supportedImageFormats().contains(format);
        const bool writes = QImageWriter::supportedImageFormats().contains(format);
        if (reads && writes)
            findings.push_back(good(subject, "Qt reads and writes it"));
        else
            findings.push_back(bad(subject, QString("Qt does not %1 it").arg(reads ? "write" : "read"),
                "apt-get install --reinstall libqt5gui5, and unset QT_PLUGIN_PATH if it is set"));
    }
}

bool canDrawOffscreen()
{
    return QFile::exists(platformPlugin("offscreen"));
}

void lookAtFonts(Findings &findings)
{
    const QString cure = "apt-get install fonts-dejavu-core";
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr) {
        findings.push_back(weak("fonts", QString("not looked at: %1 is missing").arg(platformPlugin("offscreen")),
            "apt-get install --reinstall libqt5gui5, and unset QT_PLUGIN_PATH if it is set"));
        return;
    }
    const int families = QFontDatabase().families().size();
    if (families > 0)
        findings.push_back(good("fonts", QString("%1 families").arg(families)));
    else
        findings.push_back(weak("fonts", "there is none: windows show no text", cure));
}

void lookAtDisplay(Findings &findings)
{
    QPluginLoader xcb(platformPlugin("xcb"));
    if (xcb.load())
        findings.push_back(good("window plugin", xcb.fileName()));
    else
        findings.push_back(weak("window plugin", xcb.errorString(),
            "apt-get install --reinstall libqt5gui5, and what ldd says is missing; headless work needs none"));
    const DisplayState display = displayState();
    if (display.isThere)
        findings.push_back(good("display", display.what));
    else
        findings.push_back(weak(
            "display", display.what, "start it in a desktop session, or under xvfb-run; headless work needs none"));
}
