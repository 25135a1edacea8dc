#include "bundled.h"

namespace kvsim {

const BundledFile *bundledFile(std::string_view name)
{
    for (std::size_t i = 0; i < kBundledFileCount; ++i)
        if (kBundledFiles[i].name == name)
            return &kBundledFiles[i];
    return nullptr;
}

std::string bundledRecordingNames()
{
    constexpr std::string_view kSuffix = ".kvrec";
    std::string names;
    for (std::size_t i = 0; i < kBundledFileCount; ++i) {
        const std::string_view name = kBundledFiles[i].name;
        if (name.size() > kSuffix.size() && name.substr(name.size() - kSuffix.size()) == kSuffix)
            names.append(names.empty() ? "" : ", ").append(name.substr(0, name.size() - kSuffix.size()));
    }
    return names;
}

} // namespace kvsim
