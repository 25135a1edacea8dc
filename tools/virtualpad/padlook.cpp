#include "padlook.h"

#include <algorithm>
#include <iterator>

namespace virtualpad {

const PadLook &lookOf(const ModelRow &model)
{
    static const PadLook looks[] = {
        // type        left  top   right bottom buttons body      off       on        ink
        {KVS210_DEVICE, 0.05, 0.10, 0.17, 0.10, true, "#3a3f47", "#5b665c", "#c3cfb0", "#1f2a24"},
        {KVS300_DEVICE, 0.05, 0.10, 0.17, 0.10, true, "#25282d", "#59645c", "#c9d6c0", "#1b2430"},
        {KVS310X_DEVICE, 0.05, 0.10, 0.30, 0.10, true, "#2b3340", "#4f5560", "#f4f6f8", "#1a2233"},
        {KVR800_DEVICE, 0.05, 0.06, 0.05, 0.15, false, "#454a52", "#9b9d9f", "#fbfaf5", "#233a63"},
        {KVM450_DEVICE, 0.04, 0.05, 0.04, 0.15, false, "#2d2f33", "#8f9193", "#fdfdfd", "#232323"},
    };
    const auto find = [](int deviceType) {
        return std::find_if(
            std::begin(looks), std::end(looks), [=](const PadLook &look) { return look.deviceType == deviceType; });
    };
    const PadLook *own = find(model.deviceType);
    return own != std::end(looks) ? *own : *find(model.hasScreen ? KVS300_DEVICE : KVR800_DEVICE);
}

} // namespace virtualpad
