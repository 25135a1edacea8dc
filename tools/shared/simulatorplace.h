/// @file
/// Where the pad simulator was installed beside the program that asks.
#ifndef SIMULATORPLACE_H
#define SIMULATORPLACE_H

#include <optional>
#include <string>

namespace simulatorplace {

/// The word for the simulator's folder at the command line. A folder of this name is written ./simulator.
inline constexpr char kWord[] = "simulator";

/// The folder with the simulator's libkvsignpaddrv.so: below the prefix under which the running program is installed.
/// @return nothing when it is not installed there. Any thread may call it; throws nothing but std::bad_alloc.
std::optional<std::string> folder();

/// The folder that a driver option names: the simulator's for "simulator", else the option itself.
/// @return nothing for "simulator" when it is not installed
std::optional<std::string> folderOf(const std::string &option);

/// The message for when folder() returns nothing.
inline constexpr char kMissing[] = "the pad simulator is not installed; cure: apt-get install kvsignpad-simulator";

} // namespace simulatorplace

#endif
