/// @file
/// The files that the library's SVG texts leave.
#ifndef SVGFILES_H
#define SVGFILES_H

#include <filesystem>
#include <set>
#include <string>

/// Names of everything in /tmp that bears the SVG file's name or begins with it.
inline std::set<std::string> svgFiles()
{
    std::set<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator("/tmp")) {
        const std::string name = entry.path().filename();
        if (name.rfind("KVeSign.svg", 0) == 0)
            names.insert(name);
    }
    return names;
}

#endif
