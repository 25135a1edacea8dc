#include "deviceinfo.h"

#include "failure.h"

#include <cstring>

namespace {

template <class Item>
Item item(const OpenedPad &pad, int index)
{
    Item answer = {};
    if (pad->GetDeviceInfo(pad->type, index, &answer) != ARI_SUCCESS)
        throw Failure{QString("KV%1_GetDeviceInfo gave no item %2.").arg(pad->model).arg(index),
            "This is a fault of the library; run ./check."};
    return answer;
}

struct Text
{
    char characters[32];
};

QString axis(const OpenedPad &pad, int index)
{
    const auto range = item<_tagKVAXIS>(pad, index);
    return QString("%1..%2").arg(range.nAXMin).arg(range.nAXMax);
}

template <class Query>
QString answer(const OpenedPad &pad, Query query)
{
    Text text = {};
    const int result = query(pad->type, text.characters, static_cast<int>(sizeof text.characters) - 1);
    return result == ARI_SUCCESS ? QString(text.characters) : QString("error %1").arg(result);
}

bool decodesTo(const OpenedPad &pad, int index)
{
    INKPOINTDATA stored = {};
    stored.nIndex = index;
    const auto field = [&](int selector) { return pad->GetDecodeInkPointData(pad->type, index, selector); };
    return pad->GetInkPointData(pad->type, stored) == ARI_SUCCESS && field(INKDATATYPE_X) == stored.nX
        && field(INKDATATYPE_Y) == stored.nY && field(INKDATATYPE_STROKEEND) == (stored.bStrokeEnd ? 1 : 0);
}

int equalPoints(const OpenedPad &pad)
{
    int equal = 0;
    for (int i = 0; i < pad->GetTotalDecodeInkPointsNumber(pad->type); ++i)
        equal += decodesTo(pad, i) ? 1 : 0;
    return equal;
}

} // namespace

QStringList deviceTitles()
{
    return {"pad", "vendor", "product", "connected", "x", "y", "pressure", "driver", "pad ID", "version"};
}

QStringList deviceRow(const OpenedPad &pad)
{
    const auto driver = item<_tagKVSDKVERSION>(pad, DIID_GET_DRV_VER);
    return {pad->model, item<Text>(pad, DIID_GET_VENDOR).characters, item<Text>(pad, DIID_GET_PRODUCT).characters,
        item<bool>(pad, DIID_GET_STATUS) ? "yes" : "no", axis(pad, DIID_GET_AXIS_X), axis(pad, DIID_GET_AXIS_Y),
        QString::number(item<int>(pad, DIID_GET_PRESSURE)),
        QString("%1.%2").arg(driver.nMajorVersion).arg(driver.nMinorVersion), answer(pad, pad->GetHWPadID),
        answer(pad, pad->GetHWVersion)};
}

QStringList inkRecordTitles()
{
    return {"pad", "ink points", "ink record, characters", "decoded points", "equal"};
}

QStringList inkRecordRow(const OpenedPad &pad)
{
    const int stored = pad->GetTotalInkPointsNumber(pad->type);
    char *record = pad->Base64Encode(pad->type, EBITI_INK);
    const qulonglong size = record == nullptr ? 0 : std::strlen(record);
    const bool decoded = record != nullptr && pad->Base64Decode(pad->type, EBITI_INK, record, nullptr) == ARI_SUCCESS;
    pad->Base64EncodeFree(pad->type, record);
    const int total = pad->GetTotalDecodeInkPointsNumber(pad->type);
    if (!decoded || total != stored || equalPoints(pad) != stored)
        throw Failure{QString("The ink record of the %1 does not decode to the stored points.").arg(pad->model),
            "This is a fault of the library; run ./check."};
    return {pad->model, QString::number(stored), QString::number(size), QString::number(total), "yes"};
}
