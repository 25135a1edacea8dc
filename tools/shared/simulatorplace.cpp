#include "simulatorplace.h"

#include "driverfile.h"

#include <filesystem>
#include <system_error>

namespace simulatorplace {

namespace {

/// Relative to the folder of an installed program. The first is for multi-arch systems.
constexpr const char *kFolders[] = {
    "../lib/" KV_LIBRARY_ARCHITECTURE "/kvsignpadsdk/simulator", "../lib/kvsignpadsdk/simulator"};

} // namespace

std::optional<std::string> folder()
{
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    for (const char *place : kFolders) {
        const std::filesystem::path found = std::filesystem::canonical(program.parent_path() / place, error);
        if (!error && std::filesystem::exists(found / driverfile::kName, error))
            return found.string();
    }
    return std::nullopt;
}

std::optional<std::string> folderOf(const std::string &option)
{
    return option == kWord ? folder() : std::optional(option);
}

} // namespace simulatorplace
