/// @file
/// Compares the header's version with the loaded library's. Part of signpad.hpp.
#ifndef KVSIGNPADSDK_SIGNPADVERSION_HPP
#define KVSIGNPADSDK_SIGNPADVERSION_HPP

#include "signpaddetail.hpp"
#include "signpadtable.hpp"

#include <array>
#include <cstdio>
#include <cstring>

namespace kv::detail {

inline std::array<int, 4> numbersOf(const char *version)
{
    std::array<int, 4> numbers{};
    std::sscanf(version, "%d.%d.%d.%d", &numbers[0], &numbers[1], &numbers[2], &numbers[3]);
    return numbers;
}

/// The library may be newer than the header within a major version, not older.
inline void checkVersion()
{
    static const bool serves = [] {
        char about[256] = {};
        KVS300_GetAboutInfo(KVS300_DEVICE, about);
        const char *stated = std::strstr(about, "Version : ");
        const std::array<int, 4> there = numbersOf(stated ? stated + std::strlen("Version : ") : "0");
        const std::array<int, 4> wanted = numbersOf(kVersion);
        return there[0] == wanted[0] && there >= wanted;
    }();
    if (!serves)
        throw PadError(Errc::VersionMismatch);
}

} // namespace kv::detail

#endif
