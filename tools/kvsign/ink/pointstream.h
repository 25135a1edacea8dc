/// @file
/// Ink points one by one, so that a signature of any length takes little memory.
#ifndef POINTSTREAM_H
#define POINTSTREAM_H

#include <kvsignpadsdk_global.h>

class PointSource
{
public:
    PointSource() = default;
    virtual ~PointSource() = default;
    PointSource(const PointSource &) = delete;
    PointSource &operator=(const PointSource &) = delete;

    /// The next point; false after the last one. Throws a Failure that says what is wrong and where.
    virtual bool next(POINTDATA &point) = 0;
};

class PointSink
{
public:
    PointSink() = default;
    virtual ~PointSink() = default;
    PointSink(const PointSink &) = delete;
    PointSink &operator=(const PointSink &) = delete;

    virtual void put(const POINTDATA &point) = 0;

    /// Call it once, after the last point.
    virtual void finish() = 0;
};

inline void pour(PointSource &source, PointSink &sink)
{
    POINTDATA point;
    while (source.next(point))
        sink.put(point);
    sink.finish();
}

#endif
