#include "padmodel.h"

#include <algorithm>

namespace signdesk {

#define SIGNDESK_PAD(family, name, width, height, hasFingerprint)                                                      \
    {                                                                                                                  \
        name, family##_DEVICE, width, height, hasFingerprint, family##_InitialDevice, family##_UnInitialDevice,        \
            family##_Clear, family##_SetPenStyle, family##_SetPenWidth, family##_SetPenColor,                          \
            family##_SignPadEventCallback, family##_GetHWVersion, family##_GetTotalInkPointsNumber,                    \
            family##_GetInkPointData, family##_SetSaveClipImageMargin, family##_SaveDrawingImage,                      \
            family##_Base64Encode, family##_Base64EncodeFree, family##_AboutBox                                        \
    }

const std::array<PadModel, 5> &padModels()
{
    static const std::array<PadModel, 5> models{{
        SIGNDESK_PAD(KVS210, "S210", 2360, 1430, false),
        SIGNDESK_PAD(KVS300, "S300", 2300, 1300, false),
        SIGNDESK_PAD(KVS310X, "S310X", 21170, 11490, true),
        SIGNDESK_PAD(KVR800, "R800", 29870, 20120, false),
        SIGNDESK_PAD(KVM450, "M450", 29870, 20120, false),
    }};
    return models;
}

const PadModel *padModelOfName(const QString &name)
{
    const auto &models = padModels();
    const auto found = std::find_if(models.begin(), models.end(),
        [&](const PadModel &model) { return name.compare(QLatin1String(model.name), Qt::CaseInsensitive) == 0; });
    return found == models.end() ? nullptr : &*found;
}

} // namespace signdesk
