/// @file
/// The pad driver's operations as types. The driver is a shared library of its own, loaded while the program runs.
///
/// Each operation returns a KVSPDAPI_RETURN_ID. Callbacks run on the driver's own thread, in the pad's order, and
/// never after KVSPDAPI_UnInitial has returned. Callbacks may call operations: the driver holds no lock then.
#ifndef DRIVERINTERFACE_H
#define DRIVERINTERFACE_H

#include "kvsignpadsdk_global.h"

/// Opens the pad of a DEVICE_TYPE_ID and starts the reading thread. The fingerprint callback may be null.
using KVSPDAPI_Initial = int (*)(int nDeviceType, NOTIFY_HWSIGNDATA pfnPenPacket, NOTIFY_FPDATA pfnFingerprint);

/// Ends the reading thread and releases the pad; returns after the last callback has finished.
using KVSPDAPI_UnInitial = int (*)();

/// Switches the pad's screen on or off.
using KVSPDAPI_OpenDeviceLCD = int (*)(bool bOn);

/// Erases what the pad shows.
using KVSPDAPI_ClearDeviceContent = int (*)();

/// The text queries write a zero-terminated text of at most nMaxCount bytes.
using KVSPDAPI_GetDevicePenID = int (*)(char *pText, int nMaxCount);
using KVSPDAPI_GetDevicePadID = int (*)(char *pText, int nMaxCount);
using KVSPDAPI_GetDeviceSecureID = int (*)(char *pText, int nMaxCount);

/// The version text begins with the model's identifier.
using KVSPDAPI_GetDevicePartsVersion = int (*)(char *pText, int nMaxCount);

/// Shows or hides version information on the pad's screen.
using KVSPDAPI_ShowVersionInfoOnDevice = int (*)(bool bOn);

/// Sets the pen style on the pad: true lets the width follow the pressure.
using KVSPDAPI_SetDevicePenStyle = int (*)(bool bWithPressureValue);

/// Shows a picture (5-6-5 colours, high byte first) on the pad's screen; gives up when *pbAbort becomes true.
using KVSPDAPI_ShowFPImageOnDevice = int (*)(
    unsigned char *pImage, int nLength, int nWidth, int nHeight, bool *pbAbort);

#endif
