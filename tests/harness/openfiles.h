/// @file
/// Which files a process has open, for tests of what closes them.
#ifndef OPENFILES_H
#define OPENFILES_H

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

/// The names of all open files and directories; devices, sockets and pipes aside.
inline std::vector<std::string> openFiles()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code closedMeanwhile;
        const std::string name = std::filesystem::read_symlink(entry, closedMeanwhile).string();
        if (!name.empty() && name[0] == '/' && name.rfind("/dev/", 0) != 0 && name.rfind("/proc/", 0) != 0)
            names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

#endif
