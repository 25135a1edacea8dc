/// @file
/// Loading the pad driver, recognising the pad, and ending all work with it.
#ifndef DRIVERBINDING_H
#define DRIVERBINDING_H

#include "LogFileUtil.h"
#include "contained.h"
#include "driverinterface.h"
#include "forkedchild.h"
#include "inkpoints.h"
#include "modelrules.h"
#include "padmodels.h"
#include "sharedfields.h"

#include <QLibrary>

namespace driverbinding {

/// Visits the operations of the instance's model in the order they are resolved: slot, exported name, whether needed.
template <class Pad, class Visit>
void forEachOperation(Pad &pad, Visit visit)
{
    visit(pad.m_pfn_KVSPDAPI_Initial, "KVSPDAPI_Initial", true);
    visit(pad.m_pfn_KVSPDAPI_UnInitial, "KVSPDAPI_UnInitial", true);
    if constexpr (Pad::row.model.hasScreen)
        visit(pad.m_pfn_KVSPDAPI_OpenDeviceLCD, "KVSPDAPI_OpenDeviceLCD", false);
    visit(pad.m_pfn_KVSPDAPI_ClearDeviceContent, "KVSPDAPI_ClearDeviceContent", true);
    if constexpr (hasIdentifiers(Pad::row.model))
        visit(pad.m_pfn_KVSPDAPI_GetDevicePenID, "KVSPDAPI_GetDevicePenID", true);
    visit(pad.m_pfn_KVSPDAPI_GetDevicePadID, "KVSPDAPI_GetDevicePadID", true);
    if constexpr (hasIdentifiers(Pad::row.model))
        visit(pad.m_pfn_KVSPDAPI_GetDeviceSecureID, "KVSPDAPI_GetDeviceSecureID", true);
    visit(pad.m_pfn_KVSPDAPI_GetDevicePartsVersion, "KVSPDAPI_GetDevicePartsVersion", true);
    if constexpr (showsVersion(Pad::row.model))
        visit(pad.m_pfn_KVSPDAPI_ShowVersionInfoOnDevice, "KVSPDAPI_ShowVersionInfoOnDevice", true);
    visit(pad.m_pfn_KVSPDAPI_SetDevicePenStyle, "KVSPDAPI_SetDevicePenStyle", true);
    if constexpr (Pad::row.model.hasFingerprintSensor)
        visit(pad.m_pfn_KVSPDAPI_ShowFPImageOnDevice, "KVSPDAPI_ShowFPImageOnDevice", true);
}

/// Resolves every operation. Returns false when a needed one is missing.
template <class Pad>
bool resolveOperations(Pad &pad)
{
    bool complete = true;
    forEachOperation(pad, [&](auto &slot, const char *name, bool needed) {
        slot = reinterpret_cast<std::remove_reference_t<decltype(slot)>>(pad.m_plibKVSignPadDriver->resolve(name));
        complete = complete && (slot != nullptr || !needed);
    });
    return complete;
}

template <class Pad>
bool load(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "LoadKVSignPadDriver()"};
    KV_LOG(key, "<%ld>-Enter...");
    pad.m_plibKVSignPadDriver = new QLibrary(QStringLiteral("./libkvsignpaddrv.so"));
    if (!pad.m_plibKVSignPadDriver->load()) {
        KV_LOG(key, "<%ld>-'libkvsignpaddrv.so' Library is not loaded !");
        return false;
    }
    if (!resolveOperations(pad)) {
        KV_LOG(key, "<%ld>-'libkvsignpaddrv.so' Library APIs failed to load !");
        return false;
    }
    const int nResult =
        pad.m_pfn_KVSPDAPI_Initial(Pad::row.model.deviceType, Pad::penPacketCallback, Pad::fingerprintCallback);
    KV_LOG(key, "<%ld>-after call m_pfn_KVSPDAPI_Initial(), nResult=%d", nResult);
    const bool bRet = nResult == KVSPDARI_SUCCESS;
    KV_LOG(key, "<%ld>-leave with bRet=%d", bRet);
    return bRet;
}

/// Asks for the version text. Returns true, and takes the pad's pressure range from it, if the pad is of this model.
template <class Pad>
bool recognise(Pad &pad, const logging::Key &key)
{
    constexpr int kVersionSize = 32;
    char cVersion[kVersionSize + 1] = {}; // zeroed and one longer: the driver may write nothing, or no terminating zero
    const int nResult = pad.m_pfn_KVSPDAPI_GetDevicePartsVersion(cVersion, kVersionSize);
    const std::optional<int> maxPressure = maxPressureOf(Pad::row.model, cVersion);
    if (maxPressure.has_value())
        shared::set(pad.m_nMaxPressureValue, *maxPressure);
    KV_LOG(key, "<%ld>-cVersion=%s, nResult=%d", cVersion, nResult);
    return maxPressure.has_value();
}

template <class Pad>
void preparePad(Pad &pad)
{
    pad.m_pfn_KVSPDAPI_ClearDeviceContent();
    if constexpr (Pad::row.model.hasScreen) {
        if (pad.m_pfn_KVSPDAPI_OpenDeviceLCD != nullptr)
            pad.m_pfn_KVSPDAPI_OpenDeviceLCD(true);
    }
}

template <class Pad>
bool connect(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "IsDeviceConnected()"};
    KV_LOG(key, "<%ld>-enter...");
    shared::set(pad.m_bDeviceConnected, pad.LoadKVSignPadDriver());
    if (pad.m_bDeviceConnected) {
        if (!recognise(pad, key))
            shared::set(pad.m_bDeviceConnected, false);
        if (pad.m_bDeviceConnected)
            preparePad(pad);
        if (!inkpoints::createLists(pad)) {
            KV_LOG(key, "<%ld>-((m_pPointDataList || m_pDecodedPointDataList) == nullptr), out of memory !!!");
            shared::set(pad.m_bDeviceConnected, false);
        }
    }
    KV_LOG(key, "<%ld>-leave with m_bDeviceConnected=%d", pad.m_bDeviceConnected);
    return pad.m_bDeviceConnected;
}

/// Puts the pad back into its idle state.
template <class Pad>
void quietPad(Pad &pad)
{
    if constexpr (Pad::row.model.hasScreen) {
        if (pad.m_pfn_KVSPDAPI_OpenDeviceLCD != nullptr)
            pad.m_pfn_KVSPDAPI_OpenDeviceLCD(false);
    } else {
        if (pad.m_pfn_KVSPDAPI_ClearDeviceContent != nullptr)
            pad.m_pfn_KVSPDAPI_ClearDeviceContent();
    }
}

template <class Pad>
bool unload(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "ShutdownKVSignPadDriver()"};
    KV_LOG(key, "<%ld>-Enter...");
    if (pad.m_plibKVSignPadDriver != nullptr) {
        // Catch the driver's exceptions before unloading it: their types and destructors are in its code.
        contained::run([&pad] { quietPad(pad); });
        if (pad.m_pfn_KVSPDAPI_UnInitial != nullptr)
            contained::run(pad.m_pfn_KVSPDAPI_UnInitial);
        pad.m_plibKVSignPadDriver->unload();
        delete pad.m_plibKVSignPadDriver;
        pad.m_plibKVSignPadDriver = nullptr;
    }
    KV_LOG(key, "<%ld>-leave !");
    return true;
}

template <class Pad>
void shutdown(Pad &pad)
{
    static constexpr logging::Key key{Pad::row.scope, "Shutdown()"};
    KV_LOG(key, "<%ld>-Enter...");
    if (!pad.m_internals.isOfThisProcess())
        forkedchild::freeLocks(pad);
    if constexpr (Pad::row.model.hasFingerprintSensor)
        pad.stopDisplayThread(key);
    pad.ShutdownKVSignPadDriver();
    inkpoints::deleteLists(pad);
    if constexpr (Pad::row.model.hasFingerprintSensor)
        pad.releaseFingerprintPlaces();
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace driverbinding

#endif
