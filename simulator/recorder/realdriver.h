/// @file
/// The driver that the recorder stands in front of.
#ifndef REALDRIVER_H
#define REALDRIVER_H

#include "driverinterface.h"

#include <string>

namespace kvrec {

/// Loads the driver and finds its operations; those that it lacks are null.
class RealDriver
{
public:
    /// Throws std::runtime_error when it cannot be loaded or is this very library; and, unless it is trusted, when
    /// others could put another driver in its place.
    RealDriver(const std::string &path, bool isTrusted);
    ~RealDriver();
    RealDriver(const RealDriver &) = delete;
    RealDriver &operator=(const RealDriver &) = delete;

private:
    template <class Function>
    Function find(const char *name) const;

    void *m_library;

public:
    const KVSPDAPI_Initial Initial;
    const KVSPDAPI_UnInitial UnInitial;
    const KVSPDAPI_OpenDeviceLCD OpenDeviceLCD;
    const KVSPDAPI_ClearDeviceContent ClearDeviceContent;
    const KVSPDAPI_GetDevicePenID GetDevicePenID;
    const KVSPDAPI_GetDevicePadID GetDevicePadID;
    const KVSPDAPI_GetDeviceSecureID GetDeviceSecureID;
    const KVSPDAPI_GetDevicePartsVersion GetDevicePartsVersion;
    const KVSPDAPI_ShowVersionInfoOnDevice ShowVersionInfoOnDevice;
    const KVSPDAPI_SetDevicePenStyle SetDevicePenStyle;
    const KVSPDAPI_ShowFPImageOnDevice ShowFPImageOnDevice;
};

} // namespace kvrec

#endif
