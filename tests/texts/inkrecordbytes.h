/// @file
/// The ink record written out by hand, byte by byte.
#ifndef INKRECORDBYTES_H
#define INKRECORDBYTES_H

#include <QByteArray>

#include <cstdint>
#include <vector>

struct RecordPoint
{
    int x;
    int y;
    int pressure;
    int strokeEnd = 0;
    uint64_t tick = 0;
    int64_t time = 0;
};

inline void appendLittleEndian(QByteArray &bytes, uint64_t value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xff);
}

/// 24 bytes a point, without the byte at the end. The reserved byte is `reserved`.
inline QByteArray recordOf(const std::vector<RecordPoint> &points, int reserved = 0)
{
    QByteArray bytes;
    bytes.reserve(static_cast<int>(points.size() * 24 + 48));
    for (const RecordPoint &point : points) {
        appendLittleEndian(bytes, static_cast<uint16_t>(point.x), 2);
        appendLittleEndian(bytes, static_cast<uint16_t>(point.y), 2);
        appendLittleEndian(bytes, static_cast<uint16_t>(point.pressure), 2);
        appendLittleEndian(bytes, static_cast<uint64_t>(point.strokeEnd), 1);
        appendLittleEndian(bytes, static_cast<uint64_t>(reserved), 1);
        appendLittleEndian(bytes, point.tick, 8);
        appendLittleEndian(bytes, static_cast<uint64_t>(point.time), 8);
    }
    return bytes;
}

#endif
