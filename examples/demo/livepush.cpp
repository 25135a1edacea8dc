#include "livepush.h"

#include "failure.h"

#include <QElapsedTimer>

#include <mutex>

namespace {

std::mutex g_mutex;
LivePushes g_pushes;
QElapsedTimer g_sinceFirst;

/// On the driver's thread. The text belongs to the library and is gone after the return, so it is copied.
void receive(char *base64)
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    if (g_pushes.images++ == 0)
        g_sinceFirst.start();
    g_pushes.seconds = static_cast<double>(g_sinceFirst.nsecsElapsed()) / 1e9;
    g_pushes.last = QByteArray(base64);
}

} // namespace

void startLivePush(const OpenedPad &pad)
{
    {
        const std::lock_guard<std::mutex> lock(g_mutex);
        g_pushes = {};
    }
    if (!KVS210_SetRealTimeSignBase64DataCallback(pad->type, EBITI_JPEG, receive))
        throw Failure{"The S210 refused the live push.", "This is a fault of the library; run ./check."};
}

LivePushes livePushes()
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    return g_pushes;
}
