/// @file
/// Sends the whole signature to the caller's receiver after every pen movement.
#ifndef LIVEPUSH_H
#define LIVEPUSH_H

#include "LogFileUtil.h"
#include "contained.h"
#include "padmodels.h"
#include "sharedfields.h"

namespace livepush {

template <class Pad>
bool setReceiver(Pad &pad, int nType, SIGNPAD_SIGN_BASE64_DATA_CALLBACK pfnSignBase64DataCallback)
{
    static constexpr logging::Key key{Pad::row.scope, "SetRealTimeSignBase64DataCallback()"};
    if constexpr (Pad::row.has(LogsPushReceiver))
        KV_LOG(key, "<%ld>-Enter, nType=%d, pfnSignBase64DataCallback=%x", nType,
            logging::shortAddress(pfnSignBase64DataCallback));
    else
        KV_LOG(key, "<%ld>-Enter, nType=%d", nType);
    shared::set(pad.m_nRealTimeSignBase64Data_ImageTypeID, nType);
    shared::set(pad.m_pfnRealTimeSignBase64DataCallback, pfnSignBase64DataCallback);
    KV_LOG(key, "<%ld>-leave with bRet = %d...", true);
    return true;
}

/// Pushes if there is a receiver. Holds no lock while the receiver runs.
template <class Pad>
void push(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "CheckIfNeedToSendRealTimeSignBase64Data()"};
    KV_LOG(key, "<%ld>-Enter...");
    if (const auto receiver = shared::get(pad.m_pfnRealTimeSignBase64DataCallback)) {
        if (char *text = pad.EncodeBase64SignImage(shared::get(pad.m_nRealTimeSignBase64Data_ImageTypeID))) {
            contained::run([&] { receiver(text); });
            pad.Base64EncodeFree(text);
            // Else this thread takes the canvas lock again at once, and a large canvas is never painted.
            pad.m_internals.repaint.letPaint();
        }
    }
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace livepush

#endif
