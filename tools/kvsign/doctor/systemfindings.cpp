#include "../failure.h"
#include "../headlesspad.h"
#include "findings.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <unistd.h>

namespace {

constexpr const char *kSharedFiles[] = {"/tmp/KVeSign.svg", "/tmp/kvsignpadsdk.log", "/tmp/kvsignpadsdk_inthread.log"};
constexpr char kUsbDevices[] = "/dev/bus/usb";

bool mayWrite(const QString &path)
{
    return access(QFile::encodeName(path).constData(), R_OK | W_OK) == 0;
}

void lookAtTmp(Findings &findings)
{
    if (mayWrite("/tmp"))
        findings.push_back(good("/tmp", "can be written to"));
    else if (errno == EROFS)
        findings.push_back(bad("/tmp", "is read-only: SVG texts and the log need it",
            "mount -o remount,rw /tmp; for a container --tmpfs /tmp, for a service PrivateTmp=yes"));
    else
        findings.push_back(bad("/tmp", "cannot be written to: SVG texts and the log need it", "chmod 1777 /tmp"));
}

void lookAtUsb(Findings &findings)
{
    int devices = 0, closed = 0;
    QDirIterator nodes(kUsbDevices, QDir::System, QDirIterator::Subdirectories);
    while (nodes.hasNext()) {
        ++devices;
        closed += mayWrite(nodes.next()) ? 0 : 1;
    }
    if (devices == 0)
        findings.push_back(weak("USB", QString("there are no devices in %1").arg(kUsbDevices),
            "plug the pad in; in a container pass the devices on (--device /dev/bus/usb)"));
    else if (closed > 0)
        findings.push_back(weak("USB", QString("%1 of %2 devices may not be used by you").arg(closed).arg(devices),
            "if the pad is one of them: apt-get install kvsignpad-udev, write its numbers into "
            "/etc/udev/hwdb.d/70-kvsignpad.hwdb as is said there, and plug it in again"));
    else
        findings.push_back(good("USB", QString("%1 devices, all of which you may use").arg(devices)));
}

} // namespace

void lookAtPermissions(Findings &findings)
{
    lookAtTmp(findings);
    for (const char *path : kSharedFiles) {
        if (QFileInfo::exists(path) && !mayWrite(path))
            findings.push_back(weak(path, "belongs to another user", QString("rm %1, as that user").arg(path)));
    }
    lookAtUsb(findings);
}

void lookAtPad(Findings &findings, const QString &model)
{
    try {
        const HeadlessPad pad(model, {});
        findings.push_back(good("pad", QString("%1, version \"%2\"").arg(pad->model, pad.text(pad->GetHWVersion))));
    } catch (const Failure &) {
        findings.push_back(bad("pad", QString("none answers as %1").arg(model == "auto" ? "any model" : model),
            "cure what is said above; see that the pad is plugged in, is of this model, and that no other program uses it"));
    }
}
