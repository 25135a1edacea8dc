// Work that no exported function does alone, so it is called directly inside the library.
#include "compare.h"
#include "inkbounds.h"
#include "plain.h"

#include <QImage>

#include <cmath>

namespace {

QImage scribble(const QSize &size)
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    QPointF last(size.width() * 0.2, size.height() * 0.5);
    for (int i = 1; i < 400; ++i) {
        const QPointF here(size.width() * (0.2 + 0.0015 * i), size.height() * (0.5 + 0.2 * std::sin(i * 0.2)));
        plain::drawSegment(canvas, {last, here, 6}, Qt::black);
        last = here;
    }
    return canvas;
}

void bounds(benchmark::State &state, const QSize &size)
{
    const QImage canvas = scribble(size);
    compare::run(
        state, [&] { benchmark::DoNotOptimize(inkbounds::scan(canvas)); },
        [&] { benchmark::DoNotOptimize(plain::boundingBox(canvas)); });
}

void transparency(benchmark::State &state, const QSize &size)
{
    const QImage canvas = scribble(size);
    compare::run(
        state,
        [&] {
            QImage image = canvas;
            inkbounds::makeWhiteTransparent(image);
        },
        [&] {
            QImage image = canvas;
            plain::makeWhiteTransparent(image);
        });
}

} // namespace

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    for (const QSize &size : {QSize(400, 200), QSize(800, 600), QSize(1920, 1080)}) {
        const std::string name = std::to_string(size.width()) + "x" + std::to_string(size.height());
        benchmark::RegisterBenchmark(("bounds/" + name).c_str(), bounds, size)->Iterations(101);
        benchmark::RegisterBenchmark(("transparency/" + name).c_str(), transparency, size)->Iterations(41);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
