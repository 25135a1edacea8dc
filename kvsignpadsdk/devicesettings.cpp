#include "devicesettings.h"

#include <cstring>

namespace devicesettings {

namespace {

template <class Item>
void put(void *pOutput, const Item &item)
{
    std::memcpy(pOutput, &item, sizeof item); // the caller's buffer need not be aligned
}

} // namespace

void writeInfo(const ModelRow &model, const State &state, int nIndex, void *pOutput)
{
    switch (nIndex) {
    case DIID_GET_STATUS:
        put(pOutput, state.connected);
        break;
    case DIID_GET_PRESSURE:
        put(pOutput, state.maxPressure);
        break;
    case DIID_GET_AXIS_X:
        put(pOutput, _tagKVAXIS{0, model.rawSpanX});
        break;
    case DIID_GET_AXIS_Y:
        put(pOutput, _tagKVAXIS{0, model.rawSpanY});
        break;
    case DIID_GET_VENDOR:
        std::strcpy(static_cast<char *>(pOutput), "Korvane");
        break;
    case DIID_GET_PRODUCT:
        std::strcpy(static_cast<char *>(pOutput), model.name);
        break;
    case DIID_GET_DRV_VER:
        put(pOutput, _tagKVSDKVERSION{1, 0});
        break;
    default:
        break;
    }
}

int askText(const logging::Key &key, int (*operation)(char *, int), char *pText, int nMaxCount)
{
    const int nResult = operation == nullptr ? ARI_FAIL : operation(pText, nMaxCount);
    KV_LOG(key, "<%ld>-leave with nResult=%d", nResult);
    return nResult;
}

} // namespace devicesettings
