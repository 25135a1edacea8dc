/// @file
/// The pad models, one row each: everything about a pad that does not depend on the program that uses it. The library,
/// the simulator, the tools, the examples and the measurements read these rows. The tests have their own copy, so that
/// a slip here is noticed.
#ifndef MODELROWS_H
#define MODELROWS_H

#include "kvsignpadsdk_global.h"

#include <string_view>

/// Size of the fingerprint sensor's image, one grey byte a pixel.
inline constexpr int kFingerprintWidth = 208;
inline constexpr int kFingerprintHeight = 288;

/// A version text that begins with `text` names a pad of the model, with this largest pressure.
struct VersionPrefix
{
    const char *text;
    int maxPressure;
};

/// How the pen's width follows from the width level.
enum class WidthRule
{
    FixedDivisor, ///< level / 306 per unit of pressure; without pressure: the level
    OwnMaximum ///< level * 3 at the pad's own largest pressure; without pressure: level * 3
};

struct ModelRow
{
    int deviceType;
    const char *name; ///< "S300", also what GetDeviceInfo gives as the product
    int rawOffsetX; ///< raw x at the left edge of the writing area
    int rawOffsetY; ///< raw y at its top edge
    int rawSpanX; ///< size of the writing area in raw units
    int rawSpanY;
    int maxPressure; ///< until the version text says otherwise
    WidthRule widthRule;
    bool hasScreen; ///< one that can be switched on and off; modelrules.h says what else such pads have
    bool hasFingerprintSensor;
    VersionPrefix versions[8]; ///< tried in this order, ended by a null text
};

inline constexpr ModelRow kS210{KVS210_DEVICE, "S210", 160, 220, 2360, 1430, 2048, WidthRule::FixedDivisor, true, false,
    {{"KVT120", 1024}, {"KVS210L1", 1024}, {"KVT140L1", 1024}, {"KVS190", 1024}, {"KVN230", 1024}, {"KVS210", 2048},
        {"KVT14", 2048}}};
inline constexpr ModelRow kS300{
    KVS300_DEVICE, "S300", 200, 200, 2300, 1300, 2048, WidthRule::FixedDivisor, true, false, {{"KVS300", 2048}}};
inline constexpr ModelRow kS310X{
    KVS310X_DEVICE, "S310X", 2050, 1750, 21170, 11490, 2048, WidthRule::FixedDivisor, true, true, {{"KVS310X", 2048}}};
inline constexpr ModelRow kR800{
    KVR800_DEVICE, "R800", 550, 180, 29870, 20120, 8192, WidthRule::OwnMaximum, false, false, {{"KVR800", 8192}}};
inline constexpr ModelRow kM450{
    KVM450_DEVICE, "M450", 550, 180, 29870, 20120, 8192, WidthRule::OwnMaximum, false, false, {{"KVM450", 8192}}};

/// All of them, in the order in which programs offer them.
inline constexpr const ModelRow *kModelRows[] = {&kS210, &kS300, &kS310X, &kR800, &kM450};

/// Null when there is no such model.
constexpr const ModelRow *modelOfType(int deviceType)
{
    for (const ModelRow *model : kModelRows) {
        if (model->deviceType == deviceType)
            return model;
    }
    return nullptr;
}

/// Null when there is no such model; capitals count.
constexpr const ModelRow *modelOfName(std::string_view name)
{
    for (const ModelRow *model : kModelRows) {
        if (model->name == name)
            return model;
    }
    return nullptr;
}

#endif
