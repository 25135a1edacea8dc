/// @file
/// The five families of exported functions as rows of a table.
#ifndef PADFAMILIES_H
#define PADFAMILIES_H

#include <kvsignpadsdk_global.h>

struct PadFamily
{
    const char *model; ///< "S300"
    int type; ///< first argument of every function below
    bool hasFingerprint;
    decltype(&KVS300_InitialDevice) InitialDevice;
    decltype(&KVS300_UnInitialDevice) UnInitialDevice;
    decltype(&KVS300_GetHWPadID) GetHWPadID;
    decltype(&KVS300_GetHWPenID) GetHWPenID; ///< null where the model has none
    decltype(&KVS300_GetHWVersion) GetHWVersion;
    decltype(&KVS300_GetDeviceInfo) GetDeviceInfo;
    decltype(&KVS300_SetPenWidth) SetPenWidth;
    decltype(&KVS300_SetPenColor) SetPenColor;
    decltype(&KVS300_SetPenStyle) SetPenStyle;
    decltype(&KVS300_GetDeviceConfirmOrCancelKeyStatus) GetKey;
    decltype(&KVS300_GetTotalInkPointsNumber) GetTotalInkPointsNumber;
    decltype(&KVS300_GetInkPointData) GetInkPointData;
    decltype(&KVS300_SetSaveClipImageMargin) SetSaveClipImageMargin;
    decltype(&KVS300_SaveDrawingImage) SaveDrawingImage;
    decltype(&KVS300_Base64Encode) Base64Encode;
    decltype(&KVS300_Base64EncodeFree) Base64EncodeFree;
    decltype(&KVS300_GetAboutInfo) GetAboutInfo;
};

#define KVSIGN_FAMILY(family, model, hasFingerprint, GetHWPenID)                                                       \
    {                                                                                                                  \
        model, family##_DEVICE, hasFingerprint, family##_InitialDevice, family##_UnInitialDevice, family##_GetHWPadID, \
            GetHWPenID, family##_GetHWVersion, family##_GetDeviceInfo, family##_SetPenWidth, family##_SetPenColor,     \
            family##_SetPenStyle, family##_GetDeviceConfirmOrCancelKeyStatus, family##_GetTotalInkPointsNumber,        \
            family##_GetInkPointData, family##_SetSaveClipImageMargin, family##_SaveDrawingImage,                      \
            family##_Base64Encode, family##_Base64EncodeFree, family##_GetAboutInfo                                    \
    }

inline constexpr PadFamily kPadFamilies[] = {
    KVSIGN_FAMILY(KVS210, "S210", false, KVS210_GetHWPenID),
    KVSIGN_FAMILY(KVS300, "S300", false, KVS300_GetHWPenID),
    KVSIGN_FAMILY(KVS310X, "S310X", true, KVS310X_GetHWPenID),
    KVSIGN_FAMILY(KVR800, "R800", false, nullptr),
    KVSIGN_FAMILY(KVM450, "M450", false, nullptr),
};

#endif
