/// @file
/// The exported functions of each family as a row of a table, so that one test body works for all pads.
#ifndef FAMILIES_H
#define FAMILIES_H

#include "kvsignpadsdk_global.h"

#include <array>
#include <ostream>

struct Family
{
    const char *prefix; ///< "KVS300_"
    const char *deviceName; ///< "KVS300_DEVICE", as log lines name it
    int type;
    bool hasScreen;
    const char *widgetClass;
    const char *headlessClass;
    decltype(&KVS300_InitialDevice) InitialDevice;
    decltype(&KVS300_UnInitialDevice) UnInitialDevice;
    decltype(&KVS300_OpenLCD) OpenLCD; ///< null on pads without a screen, as the next two
    decltype(&KVS300_GetHWPenID) GetHWPenID;
    decltype(&KVS300_DisplayHWVersion) DisplayHWVersion;
    decltype(&KVS300_Clear) Clear;
    decltype(&KVS300_GetHWPadID) GetHWPadID;
    decltype(&KVS300_GetHWVersion) GetHWVersion;
    decltype(&KVS300_GetDeviceInfo) GetDeviceInfo;
    decltype(&KVS300_SetPenStyle) SetPenStyle;
    decltype(&KVS300_SetPenWidth) SetPenWidth;
    decltype(&KVS300_SetPenColor) SetPenColor;
    decltype(&KVS300_SignPadEventCallback) SignPadEventCallback;
    decltype(&KVS300_GetDeviceConfirmOrCancelKeyStatus) GetDeviceConfirmOrCancelKeyStatus;
    decltype(&KVS300_GetTotalInkPointsNumber) GetTotalInkPointsNumber;
    decltype(&KVS300_GetInkPointData) GetInkPointData;
    decltype(&KVS300_GetInkPointDataTimeInfo) GetInkPointDataTimeInfo;
    decltype(&KVS300_FreeInkPointDataTimeInfo) FreeInkPointDataTimeInfo;
    decltype(&KVS300_SetSaveClipImageMargin) SetSaveClipImageMargin;
    decltype(&KVS300_SaveDrawingImage) SaveDrawingImage;
    decltype(&KVS300_Base64Encode) Base64Encode;
    decltype(&KVS300_Base64EncodeFree) Base64EncodeFree;
    decltype(&KVS300_Base64EncodeEx) Base64EncodeEx;
    decltype(&KVS300_Base64EncodeExFree) Base64EncodeExFree;
    decltype(&KVS300_GetSVGImageBase64Data) GetSVGImageBase64Data;
    decltype(&KVS300_FreeSVGImageBase64Data) FreeSVGImageBase64Data;
    decltype(&KVS300_Base64Decode) Base64Decode;
    decltype(&KVS300_GetTotalDecodeInkPointsNumber) GetTotalDecodeInkPointsNumber;
    decltype(&KVS300_GetDecodeInkPointData) GetDecodeInkPointData;
    decltype(&KVS300_AboutBox) AboutBox;
    decltype(&KVS300_GetAboutInfo) GetAboutInfo;
};

#define KV_SCREEN_FUNCTIONS(prefix) prefix##_OpenLCD, prefix##_GetHWPenID, prefix##_DisplayHWVersion
#define KV_NO_SCREEN_FUNCTIONS(prefix) nullptr, nullptr, nullptr
#define KV_FAMILY(prefix, model, hasScreen, screenFunctions)                                                           \
    {                                                                                                                  \
#prefix "_", #prefix "_DEVICE", prefix##_DEVICE, hasScreen, "C" model "SignWidget", "C" model "SignObj",       \
            prefix##_InitialDevice, prefix##_UnInitialDevice, screenFunctions(prefix), prefix##_Clear,                 \
            prefix##_GetHWPadID, prefix##_GetHWVersion, prefix##_GetDeviceInfo, prefix##_SetPenStyle,                  \
            prefix##_SetPenWidth, prefix##_SetPenColor, prefix##_SignPadEventCallback,                                 \
            prefix##_GetDeviceConfirmOrCancelKeyStatus, prefix##_GetTotalInkPointsNumber, prefix##_GetInkPointData,    \
            prefix##_GetInkPointDataTimeInfo, prefix##_FreeInkPointDataTimeInfo, prefix##_SetSaveClipImageMargin,      \
            prefix##_SaveDrawingImage, prefix##_Base64Encode, prefix##_Base64EncodeFree, prefix##_Base64EncodeEx,      \
            prefix##_Base64EncodeExFree, prefix##_GetSVGImageBase64Data, prefix##_FreeSVGImageBase64Data,              \
            prefix##_Base64Decode, prefix##_GetTotalDecodeInkPointsNumber, prefix##_GetDecodeInkPointData,             \
            prefix##_AboutBox, prefix##_GetAboutInfo                                                                   \
    }

inline const std::array<Family, 5> kFamilies{{
    KV_FAMILY(KVS210, "S210", true, KV_SCREEN_FUNCTIONS),
    KV_FAMILY(KVS300, "S300", true, KV_SCREEN_FUNCTIONS),
    KV_FAMILY(KVS310X, "S310X", true, KV_SCREEN_FUNCTIONS),
    KV_FAMILY(KVR800, "R800", false, KV_NO_SCREEN_FUNCTIONS),
    KV_FAMILY(KVM450, "M450", false, KV_NO_SCREEN_FUNCTIONS),
}};

inline const Family &kS210Family = kFamilies[0];
inline const Family &kS300Family = kFamilies[1];
inline const Family &kS310XFamily = kFamilies[2];
inline const Family &kR800Family = kFamilies[3];
inline const Family &kM450Family = kFamilies[4];

inline void PrintTo(const Family &family, std::ostream *out)
{
    *out << family.prefix;
}

#endif
