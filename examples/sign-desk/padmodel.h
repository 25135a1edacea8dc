/// @file
/// The five pad models as rows of a table: each row names its family's exported functions.
#ifndef PADMODEL_H
#define PADMODEL_H

#include <kvsignpadsdk_global.h>

#include <QString>

#include <array>

namespace signdesk {

struct PadModel
{
    const char *name; ///< "S300"
    int type; ///< first argument of every function below
    int areaWidth; ///< the writing area; a signature field keeps its proportions
    int areaHeight;
    bool hasFingerprint;
    decltype(&KVS300_InitialDevice) InitialDevice;
    decltype(&KVS300_UnInitialDevice) UnInitialDevice;
    decltype(&KVS300_Clear) Clear;
    decltype(&KVS300_SetPenStyle) SetPenStyle;
    decltype(&KVS300_SetPenWidth) SetPenWidth;
    decltype(&KVS300_SetPenColor) SetPenColor;
    decltype(&KVS300_SignPadEventCallback) SignPadEventCallback;
    decltype(&KVS300_GetHWVersion) GetHWVersion;
    decltype(&KVS300_GetTotalInkPointsNumber) GetTotalInkPointsNumber;
    decltype(&KVS300_GetInkPointData) GetInkPointData;
    decltype(&KVS300_SetSaveClipImageMargin) SetSaveClipImageMargin;
    decltype(&KVS300_SaveDrawingImage) SaveDrawingImage;
    decltype(&KVS300_Base64Encode) Base64Encode;
    decltype(&KVS300_Base64EncodeFree) Base64EncodeFree;
    decltype(&KVS300_AboutBox) AboutBox;

    double proportions() const { return static_cast<double>(areaWidth) / areaHeight; }
};

const std::array<PadModel, 5> &padModels();

/// Null when there is no such model.
const PadModel *padModelOfName(const QString &name);

} // namespace signdesk

#endif
