#include "signmapping.h"

#include "sharedfields.h"

#include <algorithm>

namespace signmapping {

namespace {

// In 64 bits, because a raw value may be any int.
double place(int raw, const int32_t &offset, int span, const double &ratio)
{
    const int64_t distance = std::clamp<int64_t>(int64_t{raw} - shared::get(offset), 0, span - 1);
    return static_cast<double>(distance) * shared::get(ratio);
}

} // namespace

void fill(SingContext &context, const ModelRow &model, int width, int height, double pressureRatio)
{
    shared::set(context.nSignWndWidth, width);
    shared::set(context.nSignRawOffset_X, model.rawOffsetX);
    shared::set(context.nSignRawOffset_Y, model.rawOffsetY);
    shared::set(context.nSignWndHeight, height);
    shared::set(context.dblWidthRatioOfSignWndOverSignRaw, width / static_cast<double>(model.rawSpanX));
    shared::set(context.dblHeightRatioOfSignWndOverSignRaw, height / static_cast<double>(model.rawSpanY));
    shared::set(context.dblSignPressureRatio, pressureRatio);
}

void map(
    const SingContext &context, const ModelRow &model, int nX, int nY, int nP, double &dblX, double &dblY, double &dblP)
{
    dblX = place(nX, context.nSignRawOffset_X, model.rawSpanX, context.dblWidthRatioOfSignWndOverSignRaw);
    dblY = place(nY, context.nSignRawOffset_Y, model.rawSpanY, context.dblHeightRatioOfSignWndOverSignRaw);
    dblP = nP * shared::get(context.dblSignPressureRatio);
}

} // namespace signmapping
