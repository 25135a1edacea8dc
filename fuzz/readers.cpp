#include "readers.h"

#include "failure.h"
#include "target.h"

#include <QBuffer>

#include <vector>

namespace fuzz {

namespace {

constexpr size_t kMostPoints = 20000;

enum class End
{
    Reached,
    TooFar,
    Broken
};

End read(const InkFormat &format, QByteArray bytes, std::vector<POINTDATA> &points)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    try {
        const auto source = format.read(buffer, "input");
        POINTDATA point{};
        while (source->next(point)) {
            points.push_back(point);
            if (points.size() > kMostPoints)
                return End::TooFar;
        }
    } catch (const Failure &failure) {
        KV_PROMISE(!failure.message.isEmpty());
        return End::Broken;
    }
    return End::Reached;
}

QByteArray written(const InkFormat &format, const std::vector<POINTDATA> &points)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const auto sink = format.write(buffer);
    for (const POINTDATA &point : points)
        sink->put(point);
    sink->finish();
    return bytes;
}

bool same(const POINTDATA &a, const POINTDATA &b)
{
    return a.nX == b.nX && a.nY == b.nY && a.nPressureValue == b.nPressureValue && a.bStrokeEnd == b.bStrokeEnd
        && a.ulTickCount == b.ulTickCount && a.pointTime == b.pointTime;
}

} // namespace

void readAndWriteAgain(const char *formatName, const uint8_t *data, size_t size)
{
    const InkFormat &format = *formatOfName(formatName);
    std::vector<POINTDATA> points;
    const End end = read(format, QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)), points);
    if (end != End::Reached || points.empty())
        return;
    std::vector<POINTDATA> again;
    KV_PROMISE(read(format, written(format, points), again) == End::Reached);
    KV_PROMISE(again.size() == points.size());
    for (size_t i = 0; i < points.size(); ++i)
        KV_PROMISE(same(points[i], again[i]));
}

} // namespace fuzz
