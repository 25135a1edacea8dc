/// @file
/// The pads that the simulator can be: writing area and pressure range in raw units, and what they answer.
#ifndef PADTABLE_H
#define PADTABLE_H

#include <string_view>

namespace kvsim {

struct PadModel
{
    int deviceType; ///< DEVICE_TYPE_ID that Initial is called with
    std::string_view name; ///< as a recording's header writes it
    int offsetX, offsetY; ///< raw position of the writing area's upper left corner
    int spanX, spanY; ///< raw size of the writing area
    int maxPressure;
    const char *versionText; ///< default answer of GetDevicePartsVersion
    bool hasScreen;
    bool hasFingerprintSensor;
};

inline constexpr PadModel kPadModels[] = {
    // type model  offset       span          pressure version           screen fingerprint
    {2, "S210", 160, 220, 2360, 1430, 2048, "KVS210 SIM 1.0", true, false},
    {3, "R800", 550, 180, 29870, 20120, 8192, "KVR800 SIM 1.0", false, false},
    {4, "M450", 550, 180, 29870, 20120, 8192, "KVM450 SIM 1.0", false, false},
    {5, "S300", 200, 200, 2300, 1300, 2048, "KVS300 SIM 1.0", true, false},
    {7, "S310X", 2050, 1750, 21170, 11490, 2048, "KVS310X SIM 1.0", true, true},
};

/// Older pads of the S210 family report half the pressure levels; only their version text tells.
inline constexpr std::string_view kHalfPressureVersions[] = {"KVT120", "KVS210L1", "KVT140L1", "KVS190", "KVN230"};

constexpr const PadModel *padOfType(int deviceType)
{
    for (const PadModel &pad : kPadModels)
        if (pad.deviceType == deviceType)
            return &pad;
    return nullptr;
}

constexpr const PadModel *padOfName(std::string_view name)
{
    for (const PadModel &pad : kPadModels)
        if (pad.name == name)
            return &pad;
    return nullptr;
}

constexpr int maxPressureOf(const PadModel &pad, std::string_view versionText)
{
    for (const std::string_view prefix : kHalfPressureVersions)
        if (versionText.substr(0, prefix.size()) == prefix)
            return 1024;
    return pad.maxPressure;
}

} // namespace kvsim

#endif
