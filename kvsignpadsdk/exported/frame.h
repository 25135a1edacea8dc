/// @file
/// The steps that every exported function has in common: check the device type, pick the open instance, forward the
/// call, log the result. There is one variant for each kind of result.
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

/// One family of exported functions: the prefix of its names and log keys, and the device type with the name that log
/// lines use for it.
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

/// Whether the device type is the family's. If it is not, this writes the leave line, in which `result` is the name of
/// the result that the caller will return.
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

/// Calls the open instance as the kind of host that g_bUseSignObj says it is. Returns `without` if no instance is open,
/// and `failed` if the call throws: when memory runs out, or the driver throws.
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

/// The same for functions that return one value without an instance and after a failure.
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

/// Calls a headless instance only; for a widget it returns `otherwise`, as it does without an instance.
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

/// All the steps for a function that returns int: device type, instance, call, leave line.
template <class Family, class Call>
int answer(const logging::Key &key, int nDeviceType, Call call, int withoutInstance = ARI_FAIL)
{
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    const int nResult = forward<Family, int>(withoutInstance, call);
    KV_LOG(key, "<%ld>-leave with nResult=%d !", nResult);
    return nResult;
}

/// All the steps for a function that frees a text.
template <class Family, class Call>
void release(const logging::Key &key, int nDeviceType, Call call)
{
    if (!isOurs<Family>(key, nDeviceType))
        return;
    forwardVoid<Family>(call);
    KV_LOG(key, "<%ld>-leave !");
}

/// Calls a member that makes a text. The leave line calls the text pEncodeBase64Image, as the functions themselves do.
template <class Family, class Call>
char *text(const logging::Key &key, Call call)
{
    char *pEncodeBase64Image = forward<Family>(static_cast<char *>(nullptr), call);
    KV_LOG(key, "<%ld>-leave with pEncodeBase64Image=%lx !", logging::address(pEncodeBase64Image));
    return pEncodeBase64Image;
}

} // namespace exported

#endif
