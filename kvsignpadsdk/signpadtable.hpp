/// @file
/// The functions of every family in one table: generated from the header by bindings/generate, not to be edited.
/// Part of signpad.hpp. A function that a family does not have is null.
#ifndef KVSIGNPADSDK_SIGNPADTABLE_HPP
#define KVSIGNPADSDK_SIGNPADTABLE_HPP

#include "kvsignpadsdk_global.h"

namespace kv {

/// The pad models.
enum class Model
{
    S210, ///< with a screen, live images and an office canvas
    S300, ///< with a screen
    S310X, ///< with a screen and a fingerprint sensor
    R800, ///< without a screen of its own
    M450, ///< without a screen of its own
};

} // namespace kv

namespace kv::detail {

/// The version of the header that this was made from.
inline constexpr const char *kVersion = "1.0.5.1";

/// The device type is the first argument of all but the about box.
struct Family
{
    const char *model;
    int type;
    decltype(&KVS210_InitialDevice) InitialDevice;
    decltype(&KVS210_UnInitialDevice) UnInitialDevice;
    decltype(&KVS210_OpenLCD) OpenLCD;
    decltype(&KVS210_Clear) Clear;
    decltype(&KVS210_GetHWPenID) GetHWPenID;
    decltype(&KVS210_GetHWPadID) GetHWPadID;
    decltype(&KVS210_GetHWVersion) GetHWVersion;
    decltype(&KVS210_DisplayHWVersion) DisplayHWVersion;
    decltype(&KVS210_GetDeviceInfo) GetDeviceInfo;
    decltype(&KVS210_SetPenStyle) SetPenStyle;
    decltype(&KVS210_SetPenWidth) SetPenWidth;
    decltype(&KVS210_SetPenColor) SetPenColor;
    decltype(&KVS210_SignPadEventCallback) SignPadEventCallback;
    decltype(&KVS210_GetDeviceConfirmOrCancelKeyStatus) GetDeviceConfirmOrCancelKeyStatus;
    decltype(&KVS210_GetTotalInkPointsNumber) GetTotalInkPointsNumber;
    decltype(&KVS210_GetInkPointData) GetInkPointData;
    decltype(&KVS210_GetInkPointDataTimeInfo) GetInkPointDataTimeInfo;
    decltype(&KVS210_FreeInkPointDataTimeInfo) FreeInkPointDataTimeInfo;
    decltype(&KVS210_SetSaveClipImageMargin) SetSaveClipImageMargin;
    decltype(&KVS210_SaveDrawingImage) SaveDrawingImage;
    decltype(&KVS210_Base64Encode) Base64Encode;
    decltype(&KVS210_Base64EncodeFree) Base64EncodeFree;
    decltype(&KVS210_Base64EncodeEx) Base64EncodeEx;
    decltype(&KVS210_Base64EncodeExFree) Base64EncodeExFree;
    decltype(&KVS210_GetSVGImageBase64Data) GetSVGImageBase64Data;
    decltype(&KVS210_FreeSVGImageBase64Data) FreeSVGImageBase64Data;
    decltype(&KVS210_Base64Decode) Base64Decode;
    decltype(&KVS210_GetTotalDecodeInkPointsNumber) GetTotalDecodeInkPointsNumber;
    decltype(&KVS210_GetDecodeInkPointData) GetDecodeInkPointData;
    decltype(&KVS210_AboutBox) AboutBox;
    decltype(&KVS210_GetAboutInfo) GetAboutInfo;
    decltype(&KVS210_SetRealTimeSignBase64DataCallback) SetRealTimeSignBase64DataCallback;
    decltype(&KVS210_InitialWPSSignCanvas) InitialWPSSignCanvas;
    decltype(&KVS210_WPSBase64Encode) WPSBase64Encode;
    decltype(&KVS210_WPSBase64EncodeFree) WPSBase64EncodeFree;
    decltype(&KVS310X_SetDisplayedFPImageAt) SetDisplayedFPImageAt;
    decltype(&KVS310X_GetFPImageBase64Data) GetFPImageBase64Data;
    decltype(&KVS310X_FreeFPImageBase64Data) FreeFPImageBase64Data;
};

/// In the order of kv::Model.
inline constexpr Family kFamilies[] = {
    {"S210", KVS210_DEVICE,
        KVS210_InitialDevice,
        KVS210_UnInitialDevice,
        KVS210_OpenLCD,
        KVS210_Clear,
        KVS210_GetHWPenID,
        KVS210_GetHWPadID,
        KVS210_GetHWVersion,
        KVS210_DisplayHWVersion,
        KVS210_GetDeviceInfo,
        KVS210_SetPenStyle,
        KVS210_SetPenWidth,
        KVS210_SetPenColor,
        KVS210_SignPadEventCallback,
        KVS210_GetDeviceConfirmOrCancelKeyStatus,
        KVS210_GetTotalInkPointsNumber,
        KVS210_GetInkPointData,
        KVS210_GetInkPointDataTimeInfo,
        KVS210_FreeInkPointDataTimeInfo,
        KVS210_SetSaveClipImageMargin,
        KVS210_SaveDrawingImage,
        KVS210_Base64Encode,
        KVS210_Base64EncodeFree,
        KVS210_Base64EncodeEx,
        KVS210_Base64EncodeExFree,
        KVS210_GetSVGImageBase64Data,
        KVS210_FreeSVGImageBase64Data,
        KVS210_Base64Decode,
        KVS210_GetTotalDecodeInkPointsNumber,
        KVS210_GetDecodeInkPointData,
        KVS210_AboutBox,
        KVS210_GetAboutInfo,
        KVS210_SetRealTimeSignBase64DataCallback,
        KVS210_InitialWPSSignCanvas,
        KVS210_WPSBase64Encode,
        KVS210_WPSBase64EncodeFree,
        nullptr,
        nullptr,
        nullptr},
    {"S300", KVS300_DEVICE,
        KVS300_InitialDevice,
        KVS300_UnInitialDevice,
        KVS300_OpenLCD,
        KVS300_Clear,
        KVS300_GetHWPenID,
        KVS300_GetHWPadID,
        KVS300_GetHWVersion,
        KVS300_DisplayHWVersion,
        KVS300_GetDeviceInfo,
        KVS300_SetPenStyle,
        KVS300_SetPenWidth,
        KVS300_SetPenColor,
        KVS300_SignPadEventCallback,
        KVS300_GetDeviceConfirmOrCancelKeyStatus,
        KVS300_GetTotalInkPointsNumber,
        KVS300_GetInkPointData,
        KVS300_GetInkPointDataTimeInfo,
        KVS300_FreeInkPointDataTimeInfo,
        KVS300_SetSaveClipImageMargin,
        KVS300_SaveDrawingImage,
        KVS300_Base64Encode,
        KVS300_Base64EncodeFree,
        KVS300_Base64EncodeEx,
        KVS300_Base64EncodeExFree,
        KVS300_GetSVGImageBase64Data,
        KVS300_FreeSVGImageBase64Data,
        KVS300_Base64Decode,
        KVS300_GetTotalDecodeInkPointsNumber,
        KVS300_GetDecodeInkPointData,
        KVS300_AboutBox,
        KVS300_GetAboutInfo,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr},
    {"S310X", KVS310X_DEVICE,
        KVS310X_InitialDevice,
        KVS310X_UnInitialDevice,
        KVS310X_OpenLCD,
        KVS310X_Clear,
        KVS310X_GetHWPenID,
        KVS310X_GetHWPadID,
        KVS310X_GetHWVersion,
        KVS310X_DisplayHWVersion,
        KVS310X_GetDeviceInfo,
        KVS310X_SetPenStyle,
        KVS310X_SetPenWidth,
        KVS310X_SetPenColor,
        KVS310X_SignPadEventCallback,
        KVS310X_GetDeviceConfirmOrCancelKeyStatus,
        KVS310X_GetTotalInkPointsNumber,
        KVS310X_GetInkPointData,
        KVS310X_GetInkPointDataTimeInfo,
        KVS310X_FreeInkPointDataTimeInfo,
        KVS310X_SetSaveClipImageMargin,
        KVS310X_SaveDrawingImage,
        KVS310X_Base64Encode,
        KVS310X_Base64EncodeFree,
        KVS310X_Base64EncodeEx,
        KVS310X_Base64EncodeExFree,
        KVS310X_GetSVGImageBase64Data,
        KVS310X_FreeSVGImageBase64Data,
        KVS310X_Base64Decode,
        KVS310X_GetTotalDecodeInkPointsNumber,
        KVS310X_GetDecodeInkPointData,
        KVS310X_AboutBox,
        KVS310X_GetAboutInfo,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        KVS310X_SetDisplayedFPImageAt,
        KVS310X_GetFPImageBase64Data,
        KVS310X_FreeFPImageBase64Data},
    {"R800", KVR800_DEVICE,
        KVR800_InitialDevice,
        KVR800_UnInitialDevice,
        nullptr,
        KVR800_Clear,
        nullptr,
        KVR800_GetHWPadID,
        KVR800_GetHWVersion,
        nullptr,
        KVR800_GetDeviceInfo,
        KVR800_SetPenStyle,
        KVR800_SetPenWidth,
        KVR800_SetPenColor,
        KVR800_SignPadEventCallback,
        KVR800_GetDeviceConfirmOrCancelKeyStatus,
        KVR800_GetTotalInkPointsNumber,
        KVR800_GetInkPointData,
        KVR800_GetInkPointDataTimeInfo,
        KVR800_FreeInkPointDataTimeInfo,
        KVR800_SetSaveClipImageMargin,
        KVR800_SaveDrawingImage,
        KVR800_Base64Encode,
        KVR800_Base64EncodeFree,
        KVR800_Base64EncodeEx,
        KVR800_Base64EncodeExFree,
        KVR800_GetSVGImageBase64Data,
        KVR800_FreeSVGImageBase64Data,
        KVR800_Base64Decode,
        KVR800_GetTotalDecodeInkPointsNumber,
        KVR800_GetDecodeInkPointData,
        KVR800_AboutBox,
        KVR800_GetAboutInfo,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr},
    {"M450", KVM450_DEVICE,
        KVM450_InitialDevice,
        KVM450_UnInitialDevice,
        nullptr,
        KVM450_Clear,
        nullptr,
        KVM450_GetHWPadID,
        KVM450_GetHWVersion,
        nullptr,
        KVM450_GetDeviceInfo,
        KVM450_SetPenStyle,
        KVM450_SetPenWidth,
        KVM450_SetPenColor,
        KVM450_SignPadEventCallback,
        KVM450_GetDeviceConfirmOrCancelKeyStatus,
        KVM450_GetTotalInkPointsNumber,
        KVM450_GetInkPointData,
        KVM450_GetInkPointDataTimeInfo,
        KVM450_FreeInkPointDataTimeInfo,
        KVM450_SetSaveClipImageMargin,
        KVM450_SaveDrawingImage,
        KVM450_Base64Encode,
        KVM450_Base64EncodeFree,
        KVM450_Base64EncodeEx,
        KVM450_Base64EncodeExFree,
        KVM450_GetSVGImageBase64Data,
        KVM450_FreeSVGImageBase64Data,
        KVM450_Base64Decode,
        KVM450_GetTotalDecodeInkPointsNumber,
        KVM450_GetDecodeInkPointData,
        KVM450_AboutBox,
        KVM450_GetAboutInfo,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr},
};

} // namespace kv::detail

#endif
