/// @file
/// The frame that every exported function has: device-type check, picking the instance, forwarding; and by
/// kind of result.
#ifndef EXPORTEDFRAME_H
#define EXPORTEDFRAME_H

#include "LogFileUtil.h"
#include "cm450signobj.h"
#include "cm450signwidget.h"
#include "contained.h"
#include "cr800signobj.h"
#include "cr800signwidget.h"
#include "cs210signobj.h"
#include "cs210signwidget.h"
#include "cs300signobj.h"
#include "cs300signwidget.h"
#include "cs310xsignobj.h"
#include "cs310xsignwidget.h"
#include "openinstance.h"

#include <type_traits>

namespace exported {

/// A family of exported functions: its prefix in names and log keys, its device type as log lines name it.
struct S210
{
    using Widget = CS210SignWidget;
    using Obj = CS210SignObj;
    static constexpr const char *prefix = "KVS210_";
    static constexpr const char *deviceName = "KVS210_DEVICE";
    static constexpr int deviceType = KVS210_DEVICE;
};
struct S300
{
    using Widget = CS300SignWidget;
    using Obj = CS300SignObj;
    static constexpr const char *prefix = "KVS300_";
    static constexpr const char *deviceName = "KVS300_DEVICE";
    static constexpr int deviceType = KVS300_DEVICE;
};
struct S310X
{
    using Widget = CS310XSignWidget;
    using Obj = CS310XSignObj;
    static constexpr const char *prefix = "KVS310X_";
    static constexpr const char *deviceName = "KVS310X_DEVICE";
    static constexpr int deviceType = KVS310X_DEVICE;
};
struct R800
{
    using Widget = CR800SignWidget;
    using Obj = CR800SignObj;
    static constexpr const char *prefix = "KVR800_";
    static constexpr const char *deviceName = "KVR800_DEVICE";
    static constexpr int deviceType = KVR800_DEVICE;
};
struct M450
{
    using Widget = CM450SignWidget;
    using Obj = CM450SignObj;
    static constexpr const char *prefix = "KVM450_";
    static constexpr const char *deviceName = "KVM450_DEVICE";
    static constexpr int deviceType = KVM450_DEVICE;
};

/// Checks the device type. For any other the leave line is written here, with the result as it names it.
template <class Family>
bool isOurs(const logging::Key &key, int nDeviceType, const char *result)
{
    if (nDeviceType == Family::deviceType)
        return true;
    KV_LOG(key, "<%ld>-leave with %s due to (nDeviceType != %s) !", result, Family::deviceName);
    return false;
}

/// The same for functions without a result.
template <class Family>
bool isOurs(const logging::Key &key, int nDeviceType)
{
    if (nDeviceType == Family::deviceType)
        return true;
    KV_LOG(key, "<%ld>-leave due to (nDeviceType != %s) !", Family::deviceName);
    return false;
}

/// Calls the open instance as the host that it is marked as; `without` answers where there is none, `failed` for an
/// exception, which is one of no memory.
template <class Family, class Result, class Call>
Result forward(Result without, Result failed, Call call)
{
    if (g_pSignWidget == nullptr)
        return without;
    return contained::call(failed, [&]() -> Result {
        return g_bUseSignObj ? call(openinstance::as<typename Family::Obj>())
                             : call(openinstance::as<typename Family::Widget>());
    });
}

/// The same for functions that tell both alike.
template <class Family, class Result, class Call>
Result forward(Result otherwise, Call call)
{
    return forward<Family, Result>(otherwise, otherwise, call);
}

/// The same for members without a result.
template <class Family, class Call>
void forwardVoid(Call call)
{
    forward<Family>(0, [&](auto &pad) {
        call(pad);
        return 0;
    });
}

/// Calls only a headless instance; `otherwise` answers for a widget too.
template <class Family, class Result, class Call>
Result forwardHeadless(Result otherwise, Call call)
{
    return forward<Family>(otherwise, [&](auto &pad) -> Result {
        if constexpr (std::decay_t<decltype(pad)>::row.host == Host::Headless)
            return call(pad);
        else
            return otherwise;
    });
}

/// Device type, instance, call, leave line, for functions that return int.
template <class Family, class Call>
int answer(const logging::Key &key, int nDeviceType, Call call, int withoutInstance = ARI_FAIL)
{
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    const int nResult = forward<Family, int>(withoutInstance, call);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// For functions that free a text.
template <class Family, class Call>
void release(const logging::Key &key, int nDeviceType, Call call)
{
    if (!isOurs<Family>(key, nDeviceType))
        return;
    forwardVoid<Family>(call);
    KV_LOG(key, "<%ld>-leave !");
}

/// Calls a member that makes a text, with the leave line under the name that the function gives its text.
template <class Family, class Call>
char *text(const logging::Key &key, Call call)
{
    char *pEncodeBase64Image = forward<Family>(static_cast<char *>(nullptr), call);
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

} // namespace exported

#endif
