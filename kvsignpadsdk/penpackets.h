/// @file
/// What a pen packet means, and acting on it. Runs on the driver's thread.
#ifndef PENPACKETS_H
#define PENPACKETS_H

#include "LogFileUtil.h"
#include "contained.h"
#include "inkpoints.h"
#include "padmodels.h"
#include "padparts.h"
#include "sharedfields.h"

namespace penpackets {

enum class Action
{
    None,
    StartStroke,
    DrawMove,
    SkipMove,
    EndStroke,
    Cancel,
    Confirm
};

/// What to do about a packet. A pure function: no pad, no lock, no log.
Action actionFor(const PadRow &row, bool inStroke, int maxPressure, int pressure, int status);

struct Position
{
    double x;
    double y;
    double pressure;
};

template <class Pad>
Position mapped(Pad &pad, int nX, int nY, int nP)
{
    Position position{};
    pad.ConvertSignRawDataToSignWndData(nX, nY, nP, position.x, position.y, position.pressure);
    return position;
}

template <class Pad>
void startStroke(Pad &pad, const logging::Key &key, int nX, int nY, int nP)
{
    shared::set(pad.m_bPenDown, true);
    const Position at = mapped(pad, nX, nY, nP);
    pad.m_dblLastSignWndX = at.x;
    pad.m_dblLastSignWndY = at.y;
    KV_LOG(key, "<%ld>-Pen_Down, dblSignWndX=%f, dblSignWndY=%f, dblSignWndPressure=%f", at.x, at.y, at.pressure);
    inkpoints::append(pad, nX, nY, nP);
}

template <class Pad>
void drawMove(Pad &pad, const logging::Key &key, int nX, int nY, int nP)
{
    const Position at = mapped(pad, nX, nY, nP);
    // Without memory the canvas lacks this segment until the next one; the point is kept all the same.
    contained::run([&] { pad.StartSignOnCanvas(at.x, at.y, at.pressure); });
    KV_LOG(key, "<%ld>-Pen_Move, dblSignWndX=%f, dblSignWndY=%f, dblSignWndPressure=%f", at.x, at.y, at.pressure);
    inkpoints::append(pad, nX, nY, nP);
    if constexpr (Pad::row.has(PushesLive))
        pad.CheckIfNeedToSendRealTimeSignBase64Data();
}

template <class Pad>
void endStroke(Pad &pad, const logging::Key &key, int nX, int nY, int nP)
{
    shared::set(pad.m_bPenDown, false);
    [[maybe_unused]] const Position at = mapped(pad, nX, nY, nP);
    KV_LOG(key, "<%ld>-Pen_Up, dblSignWndX=%f, dblSignWndY=%f, dblSignWndPressure=%f", at.x, at.y, at.pressure);
    inkpoints::appendStrokeEnd(pad);
}

// Set the mark before calling the receiver: it may clear the device, which checks the mark.
template <class Pad>
void tap(Pad &pad, const logging::Key &key, bool confirm)
{
    if (!confirm || Pad::row.tapMark == TapMark::ConfirmOrCancel)
        shared::set(padparts::tapMark(pad), true);
    if (const SIGNPAD_EVENT_CALLBACK receiver = shared::get(pad.m_pfnSignPadEventCallback))
        contained::run([&] { receiver(confirm ? 1 : 0); });
    if (confirm)
        KV_LOG(key, "<%ld>-Pen_Down_On_Enter_Button !");
    else
        KV_LOG(key, "<%ld>-Pen_Down_On_Cancel_Button !");
    shared::set(pad.m_bPenDown, false);
    shared::set(pad.m_nPressDeviceConfirmOrCancelKey, confirm ? 1 : 0);
}

template <class Pad>
void act(Pad &pad, const logging::Key &key, Action action, int nX, int nY, int nP)
{
    switch (action) {
    case Action::None:
        break;
    case Action::StartStroke:
        startStroke(pad, key, nX, nY, nP);
        break;
    case Action::DrawMove:
        drawMove(pad, key, nX, nY, nP);
        break;
    case Action::SkipMove:
        KV_LOG(key, "<%ld>-Rx invalid pressure value, skip !");
        break;
    case Action::EndStroke:
        endStroke(pad, key, nX, nY, nP);
        break;
    case Action::Cancel:
        tap(pad, key, false);
        break;
    case Action::Confirm:
        tap(pad, key, true);
        break;
    }
}

/// Handles one packet of the driver.
template <class Pad>
void handle(Pad &pad, int nX, int nY, int nP, int nPenStatus)
{
    if (!shared::get(pad.m_bDeviceConnected))
        return;
    static constexpr logging::Key key{Pad::row.scope, Pad::row.penPackets};
    KV_LOG(key, "<%ld>-Enter, nX=%d, nY=%d, nP=%d, nPenStatus=%d", nX, nY, nP, nPenStatus);
    const Action action =
        actionFor(Pad::row, shared::get(pad.m_bPenDown), shared::get(pad.m_nMaxPressureValue), nP, nPenStatus);
    // Drop the rest of this packet on bad_alloc so that the driver's thread survives.
    contained::run([&] { act(pad, key, action, nX, nY, nP); });
    KV_LOG(key, "<%ld>-leave !");
}

template <class Pad>
int setEventCallback(Pad &pad, SIGNPAD_EVENT_CALLBACK pfnSignPadEventCallback)
{
    static constexpr logging::Key key{Pad::row.scope, "SetSignPadEventCallback()"};
    KV_LOG(key, "<%ld>-enter, pfnSignPadEventCallback=%lx", logging::address(pfnSignPadEventCallback));
    shared::set(pad.m_pfnSignPadEventCallback, pfnSignPadEventCallback);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", ARI_SUCCESS);
    return ARI_SUCCESS;
}

/// Returns the last key and resets it in one atomic step, so that no tap is lost or reported twice.
template <class Pad>
int takeKeyStatus(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "GetDeviceConfirmOrCancelKeyStatus()"};
    KV_LOG(key, "<%ld>-enter...");
    const int nStatus = __atomic_exchange_n(&pad.m_nPressDeviceConfirmOrCancelKey, -1, __ATOMIC_ACQ_REL);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nStatus);
    return nStatus;
}

} // namespace penpackets

#endif
