#include "socketpath.h"

#include <cstdlib>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace kvsim {

namespace {

constexpr const char *kSocketName = "/kv-virtualpad.sock";

/// Does not follow links: whoever can plant one can exchange it later.
bool belongsToUsAlone(const std::string &directory)
{
    struct stat info
    {
    };
    constexpr mode_t kOthers = S_IRWXG | S_IRWXO;
    return lstat(directory.c_str(), &info) == 0 && S_ISDIR(info.st_mode) && info.st_uid == geteuid()
        && (info.st_mode & kOthers) == 0;
}

bool fits(const std::string &path)
{
    return path.size() < sizeof(sockaddr_un::sun_path);
}

} // namespace

std::string virtualPadSocket()
{
    if (const char *runtime = std::getenv("XDG_RUNTIME_DIR");
        runtime && *runtime && fits(std::string(runtime) + kSocketName) && belongsToUsAlone(runtime))
        return std::string(runtime) + kSocketName;
    const std::string own = "/tmp/kv-virtualpad-" + std::to_string(geteuid());
    mkdir(own.c_str(), S_IRWXU); // may exist already; what exists is checked next
    if (!belongsToUsAlone(own))
        throw std::runtime_error(own + ": not a directory of this user alone");
    return own + kSocketName;
}

} // namespace kvsim
