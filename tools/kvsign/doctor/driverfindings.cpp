#include "findings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

namespace {

constexpr char kDriver[] = "libkvsignpaddrv.so";

struct Operation
{
    const char *name;
    const char *models; ///< that do not work without it
};

constexpr Operation kOperations[] = {
    {"Initial", "all"},
    {"UnInitial", "all"},
    {"OpenDeviceLCD", "S210, S300 and S310X"},
    {"ClearDeviceContent", "all"},
    {"GetDevicePenID", "S210, S300 and S310X"},
    {"GetDevicePadID", "all"},
    {"GetDeviceSecureID", "S210, S300 and S310X"},
    {"GetDevicePartsVersion", "all"},
    {"ShowVersionInfoOnDevice", "S210, S300 and S310X"},
    {"SetDevicePenStyle", "all"},
    {"ShowFPImageOnDevice", "S310X"},
};

/// ELF's number for this processor is in the first bytes of every program of this system, so this one's are compared.
bool isForThisProcessor(const QString &path)
{
    constexpr int kClass = 4, kMachine = 18, kEnd = 20;
    QFile driver(path), own("/proc/self/exe");
    if (!driver.open(QIODevice::ReadOnly) || !own.open(QIODevice::ReadOnly))
        return true;
    const QByteArray theirs = driver.read(kEnd), ours = own.read(kEnd);
    return theirs.size() == kEnd && theirs.left(kClass + 1) == ours.left(kClass + 1)
        && theirs.mid(kMachine) == ours.mid(kMachine);
}

void lookAtOperations(Findings &findings, QLibrary &driver)
{
    for (const Operation &operation : kOperations) {
        const QByteArray symbol = QByteArray("KVSPDAPI_") + operation.name;
        const QString subject = QString("driver operation %1").arg(operation.name);
        if (driver.resolve(symbol) != nullptr)
            findings.push_back(good(subject, "there"));
        else
            findings.push_back(bad(subject, QString("missing, which %1 models need").arg(operation.models),
                "install the driver's newest version; this one does not go with the library"));
    }
}

bool lookAtFile(Findings &findings, const QFileInfo &file)
{
    const QString path = file.absoluteFilePath();
    if (!file.exists()) {
        findings.push_back(bad("driver file", path + " does not exist",
            "start it in the driver's directory, or say --driver DIRECTORY; the library looks nowhere else"));
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
    findings.push_back(good("driver file", path));
    return true;
}

} // namespace

void lookAtDriver(Findings &findings)
{
    const QFileInfo file(QDir::current(), kDriver);
    if (!lookAtFile(findings, file))
        return;
    if ((QFile::permissions(file.filePath()) & QFile::WriteOther) != 0)
        findings.push_back(weak("driver file", "everybody may change it, and so what runs in programs that sign",
            QString("chmod o-w %1").arg(file.absoluteFilePath())));
    QLibrary driver(file.absoluteFilePath());
    if (!driver.load()) {
        findings.push_back(bad("driver", driver.errorString(),
            QString("ldd %1 names the libraries that it lacks; install them").arg(file.absoluteFilePath())));
        return;
    }
    lookAtOperations(findings, driver);
    driver.unload();
}
