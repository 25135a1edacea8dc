#include "driverfile.h"
#include "findings.h"
#include "modelnames.h"
#include "modelrules.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>

#include <link.h>

namespace {

struct Operation
{
    const char *name;
    bool (*isNeededBy)(const ModelRow &);
};

bool hasScreen(const ModelRow &model)
{
    return model.hasScreen;
}

bool hasFingerprintSensor(const ModelRow &model)
{
    return model.hasFingerprintSensor;
}

constexpr Operation kOperations[] = {
    {"Initial", anyModel},
    {"UnInitial", anyModel},
    {"OpenDeviceLCD", hasScreen},
    {"ClearDeviceContent", anyModel},
    {"GetDevicePenID", hasIdentifiers},
    {"GetDevicePadID", anyModel},
    {"GetDeviceSecureID", hasIdentifiers},
    {"GetDevicePartsVersion", anyModel},
    {"ShowVersionInfoOnDevice", showsVersion},
    {"SetDevicePenStyle", anyModel},
    {"ShowFPImageOnDevice", hasFingerprintSensor},
};

using Header = ElfW(Ehdr);

bool readHeader(const QString &path, Header &header)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly)
        && file.read(reinterpret_cast<char *>(&header), sizeof header) == static_cast<qint64>(sizeof header);
}

/// Whether it is a library for the same processor as this program.
bool isForThisProcessor(const QString &path)
{
    Header theirs = {}, ours = {};
    return readHeader(path, theirs) && readHeader("/proc/self/exe", ours)
        && std::equal(theirs.e_ident, theirs.e_ident + EI_VERSION, ours.e_ident) && theirs.e_machine == ours.e_machine;
}

/// Whether the file reaches to the end of its section table, which is the last thing in it. A download that was cut off
/// does not, and loading such a file can crash the process.
bool isWhole(const QString &path)
{
    Header header = {};
    readHeader(path, header);
    const quint64 end = header.e_shoff + quint64{header.e_shentsize} * header.e_shnum;
    return static_cast<quint64>(QFileInfo(path).size()) >= end;
}

QString needing(const Operation &operation)
{
    if (operation.isNeededBy == anyModel)
        return "all";
    return QString::fromStdString(modelNames(", ", " and ", operation.isNeededBy));
}

void lookAtOperations(Findings &findings, QLibrary &driver)
{
    for (const Operation &operation : kOperations) {
        const QByteArray symbol = QByteArray("KVSPDAPI_") + operation.name;
        const QString subject = QString("driver operation %1").arg(operation.name);
        if (driver.resolve(symbol) != nullptr)
            findings.push_back(good(subject, "there"));
        else
            findings.push_back(bad(subject, QString("missing, which %1 models need").arg(needing(operation)),
                "install the driver's newest version; this one does not go with the library"));
    }
}

bool lookAtFile(Findings &findings, const QFileInfo &file)
{
    const QString path = file.absoluteFilePath();
    if (!file.exists()) {
        findings.push_back(bad("driver file", path + " does not exist",
            "install the pad's driver and say --driver DIRECTORY, or start it there; without a pad say --driver simulator"));
        return false;
    }
    if (!file.isFile() || !file.isReadable()) {
        findings.push_back(bad("driver file", path + (file.isFile() ? " cannot be read" : " is no file"),
            file.isFile() ? QString("chmod a+r %1").arg(path) : QString("put the driver's file there")));
        return false;
    }
    if (!isForThisProcessor(path)) {
        findings.push_back(bad("driver file", path + " is no library for this kind of computer",
            "install the driver for " + QSysInfo::currentCpuArchitecture()));
        return false;
    }
    if (!isWhole(path)) {
        findings.push_back(bad("driver file", path + " is cut off", "copy it again, whole"));
        return false;
    }
    findings.push_back(good("driver file", path));
    return true;
}

/// Whether it may be loaded: nobody else can write it, or the caller accepts that.
bool lookAtWriters(Findings &findings, bool allowsUnsafe)
{
    const std::optional<driverfile::Weakness> weakness = driverfile::weaknessIn(".");
    if (!weakness.has_value())
        return true;
    const QString what =
        QFile::decodeName((weakness->path + ' ' + weakness->what).c_str()) + ", and so what runs in programs that sign";
    const QString cure = QFile::decodeName(weakness->cure.c_str());
    if (allowsUnsafe)
        findings.push_back(weak("driver's safety", what, cure));
    else
        findings.push_back(bad("driver's safety", what + "; it is not used", cure + "; or say --unsafe-driver"));
    return allowsUnsafe;
}

} // namespace

bool lookAtDriver(Findings &findings, bool allowsUnsafe)
{
    const QFileInfo file(QDir::current(), driverfile::kName);
    if (!lookAtFile(findings, file))
        return false;
    if (!lookAtWriters(findings, allowsUnsafe))
        return false;
    QLibrary driver(file.absoluteFilePath());
    if (!driver.load()) {
        findings.push_back(bad("driver", driver.errorString(),
            QString("ldd %1 names the libraries that it lacks; install them").arg(file.absoluteFilePath())));
        return false;
    }
    lookAtOperations(findings, driver);
    driver.unload();
    return true;
}
