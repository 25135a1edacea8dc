// The way of a pen packet from the driver's callback to the drawn segment and the stored point. It is compared with a
// bare loop that uses one painter, one pen and one line for each segment, on a canvas of the same size.
#include "benchpad.h"
#include "compare.h"

#include <QApplication>
#include <QPainter>

#include <iostream>

namespace {

QImage whiteCanvas(const QSize &size)
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    return canvas;
}

void packet(benchmark::State &state, const PadFamily &family, const QSize &size, bool inWidget)
{
    const BenchPad pad(family, size, inWidget);
    QImage canvas = whiteCanvas(size);
    const auto library = [&] { pad.sign(); };
    const auto floor = [&] {
        for (const plain::Segment &segment : pad.segments())
            plain::drawSegment(canvas, segment, Qt::black);
    };
    compare::run(state, library, floor, static_cast<double>(pad.segments().size()));
}

// On a pad with a fingerprint, every segment also has to reach the shown canvas, where ink and fingerprint are merged.
void packetWithFingerprint(benchmark::State &state, const QSize &size)
{
    const BenchPad pad(*familyOfName("S310X"), size);
    pad.takeFingerprint(50);
    QImage ink = whiteCanvas(size);
    QImage canvas = whiteCanvas(size);
    QImage layer = whiteCanvas(size);
    const std::vector<unsigned char> image = ridges();
    for (int y = 0; y < std::min(kFingerprintHeight, size.height()); ++y) {
        for (int x = 0; x < kFingerprintWidth; ++x)
            layer.setPixel(x, y, image[static_cast<size_t>(y * kFingerprintWidth + x)] < 128 ? 0xffff0000 : 0xffffffff);
    }
    const double height = size.height() * 0.5;
    const double width = height * kFingerprintWidth / kFingerprintHeight;
    const QRectF target((size.width() - width) * 0.5, (size.height() - height) * 0.5, width, height);
    constexpr size_t kSegments = 200; // few, because the plain way is slow
    const auto library = [&] {
        for (size_t i = 0; i < kSegments; ++i)
            pad.send(pad.packets()[i]);
    };
    const auto plainWay = [&] {
        for (size_t i = 0; i < kSegments; ++i) {
            plain::drawSegment(ink, pad.segments()[i], Qt::black);
            plain::merge(canvas, ink, layer, target);
        }
    };
    compare::run(state, library, plainWay, kSegments);
}

void registerAll()
{
    for (const PadFamily &family : kPadFamilies) {
        for (const QSize &size : benchSizes()) {
            for (const bool inWidget : {false, true}) {
                const std::string name =
                    std::string("packet/") + family.model + (inWidget ? "/widget/" : "/headless/") + sizeName(size);
                benchmark::RegisterBenchmark(name.c_str(), packet, family, size, inWidget)->Iterations(15);
            }
        }
    }
    for (const QSize &size : benchSizes()) {
        benchmark::RegisterBenchmark(
            ("packet/S310X/fingerprint/" + sizeName(size)).c_str(), packetWithFingerprint, size)
            ->Iterations(9);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    registerAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
