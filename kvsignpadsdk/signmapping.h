/// @file
/// The signing context: raw pad units to canvas pixels, raw pressure to pen width.
#ifndef SIGNMAPPING_H
#define SIGNMAPPING_H

#include "LogFileUtil.h"
#include "padmodels.h"

namespace signmapping {

/// Fills the context for a canvas of width by height pixels. Another thread may be mapping at the same time: each field
/// is stored atomically, but a packet in between may see old and new fields mixed.
void fill(SingContext &context, const ModelRow &model, int width, int height, double pressureRatio);

/// Maps a packet. Points outside the writing area are moved to its border. Accepts any int.
void map(const SingContext &context, const ModelRow &model, int nX, int nY, int nP, double &dblX, double &dblY,
    double &dblP);

/// The instance's mapping with the log lines that one class writes.
template <class Pad>
void convert(Pad &pad, int nSignRawX, int nSignRawY, int nSignRawP, double &dblX, double &dblY, double &dblP)
{
    static constexpr logging::Key key{Pad::row.scope, "ConvertSignRawDataToSignWndData()"};
    if constexpr (Pad::row.has(LogsMapping))
        KV_LOG(key, "<%ld>-enter, nSignRawX=%d, nSignRawY=%d, nSignRawP=%d", nSignRawX, nSignRawY, nSignRawP);
    map(pad.m_SignContext, Pad::row.model, nSignRawX, nSignRawY, nSignRawP, dblX, dblY, dblP);
    if constexpr (Pad::row.has(LogsMapping))
        KV_LOG(key, "<%ld>-leave !");
}

} // namespace signmapping

#endif
