#include "findings.h"

#include <kvsignpadsdk_global.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace {

constexpr char kLibrary[] = "libkvsignpadsdk.so.1";

/// The file that this process runs, behind all links.
QString loadedLibrary()
{
    Dl_info info = {};
    const bool isKnown =
        dladdr(reinterpret_cast<void *>(&KVS300_InitialDevice), &info) != 0 && info.dli_fname != nullptr;
    return isKnown ? QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath() : QString();
}

/// Where the run-time linker looks, and where people put libraries.
QStringList libraryFolders()
{
    QStringList folders = QString::fromLocal8Bit(qgetenv("LD_LIBRARY_PATH")).split(':', Qt::SkipEmptyParts);
    for (const char *prefix : {"/usr/local/lib", "/usr/lib", "/lib"})
        folders << prefix << QString("%1/%2-linux-gnu").arg(prefix, QSysInfo::buildCpuArchitecture());
    return folders;
}

QStringList otherLibraries(const QString &loaded)
{
    QStringList others;
    for (const QString &folder : libraryFolders()) {
        const QString path = QFileInfo(QDir(folder), kLibrary).canonicalFilePath();
        if (!path.isEmpty() && path != loaded && !others.contains(path))
            others += path;
    }
    return others;
}

} // namespace

void lookAtLibrary(Findings &findings)
{
    const QString loaded = loadedLibrary();
    const QString version = loaded.section(".so.", 1);
    if (version != KVSIGN_VERSION)
        findings.push_back(bad("library", QString("%1 is not of kvsign's version %2").arg(loaded, KVSIGN_VERSION),
            "apt-get install --reinstall libkvsignpadsdk1 kvsign, and take away the library named here if it is still used"));
    else
        findings.push_back(good("library", loaded));
    for (const QString &other : otherLibraries(loaded))
        findings.push_back(weak("second library", other + " is there besides, and programs may take either",
            "take away the one that is not to be used, and run ldconfig"));
}
