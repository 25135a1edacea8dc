/// @file
/// The five pad models as rows of a table: each row names its family's exported functions.
#ifndef PADS_H
#define PADS_H

#include <kvsignpadsdk_global.h>

struct Pad
{
    const char *model; ///< "S300"
    int type; ///< first argument of every function below
    int width; ///< canvas in pixels, in the proportions of the writing area
    int height;
    int penWidth; ///< looks like a ballpoint on that canvas
    decltype(&KVS300_InitialDevice) InitialDevice;
    decltype(&KVS300_UnInitialDevice) UnInitialDevice;
    decltype(&KVS300_GetHWPadID) GetHWPadID;
    decltype(&KVS300_GetHWVersion) GetHWVersion;
    decltype(&KVS300_GetDeviceInfo) GetDeviceInfo;
    decltype(&KVS300_SetPenWidth) SetPenWidth;
    decltype(&KVS300_SetPenColor) SetPenColor;
    decltype(&KVS300_SignPadEventCallback) SignPadEventCallback;
    decltype(&KVS300_GetTotalInkPointsNumber) GetTotalInkPointsNumber;
    decltype(&KVS300_GetInkPointData) GetInkPointData;
    decltype(&KVS300_SaveDrawingImage) SaveDrawingImage;
    decltype(&KVS300_Base64Encode) Base64Encode;
    decltype(&KVS300_Base64EncodeFree) Base64EncodeFree;
    decltype(&KVS300_Base64Decode) Base64Decode;
    decltype(&KVS300_GetTotalDecodeInkPointsNumber) GetTotalDecodeInkPointsNumber;
    decltype(&KVS300_GetDecodeInkPointData) GetDecodeInkPointData;
};

#define DEMO_PAD(family, model, width, height, penWidth)                                                               \
    {                                                                                                                  \
        model, family##_DEVICE, width, height, penWidth, family##_InitialDevice, family##_UnInitialDevice,             \
            family##_GetHWPadID, family##_GetHWVersion, family##_GetDeviceInfo, family##_SetPenWidth,                  \
            family##_SetPenColor, family##_SignPadEventCallback, family##_GetTotalInkPointsNumber,                     \
            family##_GetInkPointData, family##_SaveDrawingImage, family##_Base64Encode, family##_Base64EncodeFree,     \
            family##_Base64Decode, family##_GetTotalDecodeInkPointsNumber, family##_GetDecodeInkPointData              \
    }

inline constexpr Pad kPads[] = {
    DEMO_PAD(KVS210, "S210", 800, 485, 2),
    DEMO_PAD(KVS300, "S300", 800, 452, 2),
    DEMO_PAD(KVS310X, "S310X", 800, 434, 2),
    DEMO_PAD(KVR800, "R800", 800, 539, 4),
    DEMO_PAD(KVM450, "M450", 800, 539, 4),
};

inline constexpr const Pad &kS210 = kPads[0];
inline constexpr const Pad &kS310X = kPads[2];

#endif
