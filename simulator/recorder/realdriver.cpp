#include "realdriver.h"

#include "driverfile.h"

#include <dlfcn.h>
#include <stdexcept>

namespace kvrec {

namespace {

void *libraryOf(const void *address)
{
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

/// Refuses a driver that other users could have replaced: it would run with all rights of the program that signs.
void refuseWhatOthersMayWrite(const std::string &path)
{
    const std::string consequence = "; it is not loaded (KVREC_TRUST=1 loads it all the same)";
    if (path.find('/') == std::string::npos)
        throw std::runtime_error(path + ": who may write it is not known without its folder" + consequence);
    if (const auto weakness = driverfile::weaknessOf(path))
        throw std::runtime_error(weakness->sentence() + consequence);
}

/// RTLD_LOCAL, because the recorder exports the same names.
void *load(const std::string &path, bool isTrusted)
{
    if (!isTrusted)
        refuseWhatOthersMayWrite(path);
    void *const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        throw std::runtime_error(dlerror());
    if (libraryOf(dlsym(library, "KVSPDAPI_Initial")) == libraryOf(reinterpret_cast<const void *>(&load))) {
        dlclose(library);
        throw std::runtime_error(path + ": is the recorder itself");
    }
    return library;
}

} // namespace

template <class Function>
Function RealDriver::find(const char *name) const
{
    return reinterpret_cast<Function>(dlsym(m_library, name));
}

#define KV_FIND(operation) operation(find<KVSPDAPI_##operation>("KVSPDAPI_" #operation))

RealDriver::RealDriver(const std::string &path, bool isTrusted)
    : m_library(load(path, isTrusted))
    , KV_FIND(Initial)
    , KV_FIND(UnInitial)
    , KV_FIND(OpenDeviceLCD)
    , KV_FIND(ClearDeviceContent)
    , KV_FIND(GetDevicePenID)
    , KV_FIND(GetDevicePadID)
    , KV_FIND(GetDeviceSecureID)
    , KV_FIND(GetDevicePartsVersion)
    , KV_FIND(ShowVersionInfoOnDevice)
    , KV_FIND(SetDevicePenStyle)
    , KV_FIND(ShowFPImageOnDevice)
{
}

RealDriver::~RealDriver()
{
    dlclose(m_library);
}

} // namespace kvrec
