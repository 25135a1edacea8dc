#include "openedpad.h"

#include "failure.h"

#include <QDir>
#include <QFile>

#include <atomic>

namespace {

// The event callback has no argument of its own, and only one pad can be open.
std::atomic<int> g_tapped{-1};

void rememberTap(int key)
{
    g_tapped = key;
}

Failure cannotOpen(const PadFamily &pad)
{
    const QString driver = QDir::current().filePath("libkvsignpaddrv.so");
    if (!QFile::exists(driver))
        return {QString("There is no pad driver %1.").arg(driver), "Start ./demo, which builds the simulated driver."};
    return {QString("KV%1_InitialDevice answered false: the driver %2 does not open a pad of this model.")
                .arg(pad.model, driver),
        "See what the simulator says above; unset the KVSIM_ variables of your environment, or remove build/ to have "
        "everything built anew."};
}

} // namespace

OpenedPad::OpenedPad(const PadFamily &pad, QWidget *parent, QPoint position)
    : m_pad(pad)
{
    g_tapped = -1;
    if (!pad.InitialDevice(
            pad.type, parent, position.x(), position.y(), kCanvasWidth, canvasHeight(pad.row, kCanvasWidth)))
        throw cannotOpen(pad);
    pad.SignPadEventCallback(pad.type, rememberTap);
    pad.SetPenWidth(pad.type, ballpointLevel(pad.row));
    pad.SetPenColor(pad.type, 13, 33, 99);
}

OpenedPad::~OpenedPad()
{
    m_pad.UnInitialDevice(m_pad.type);
}

bool OpenedPad::isConfirmed() const
{
    const int key = g_tapped;
    if (key == 0)
        throw Failure{QString("The signer of the %1 tapped cancel.").arg(m_pad.model),
            "Play a recording that ends with a tap on confirm: unset KVSIM_RECORDING."};
    return key == 1;
}

bool OpenedPad::answers() const
{
    char version[128] = "";
    return m_pad.GetHWVersion(m_pad.type, version, sizeof version) == ARI_SUCCESS;
}
