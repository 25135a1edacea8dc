/// @file
/// The 24 bytes of a point in an ink record, little-endian, and the one byte after the last point.
#ifndef INKBYTES_H
#define INKBYTES_H

#include <kvsignpadsdk_global.h>

#include <QtEndian>

namespace inkbytes {

// Offsets: x 0, y 2, pressure 4, stroke end 6, a byte without meaning 7, tick 8, time 16.
inline constexpr int kPointSize = 24;
inline constexpr int kStrokeEnd = 6;
inline constexpr int kTerminatorSize = 1;

inline POINTDATA pointOf(const char *bytes)
{
    POINTDATA point;
    point.nX = qFromLittleEndian<qint16>(bytes);
    point.nY = qFromLittleEndian<qint16>(bytes + 2);
    point.nPressureValue = qFromLittleEndian<qint16>(bytes + 4);
    point.bStrokeEnd = bytes[kStrokeEnd] != 0;
    point.ulTickCount = qFromLittleEndian<quint64>(bytes + 8);
    point.pointTime = qFromLittleEndian<qint64>(bytes + 16);
    return point;
}

inline void writePoint(const POINTDATA &point, char *bytes)
{
    qToLittleEndian<qint16>(point.nX, bytes);
    qToLittleEndian<qint16>(point.nY, bytes + 2);
    qToLittleEndian<qint16>(point.nPressureValue, bytes + 4);
    bytes[kStrokeEnd] = point.bStrokeEnd ? 1 : 0;
    bytes[7] = 0;
    qToLittleEndian<quint64>(point.ulTickCount, bytes + 8);
    qToLittleEndian<qint64>(point.pointTime, bytes + 16);
}

} // namespace inkbytes

#endif
