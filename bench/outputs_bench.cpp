// Live push, repaint, Base64 texts, bounding box and ink record, each compared with the plain way by Qt's own calls.
#include "benchpad.h"
#include "compare.h"

#include <QApplication>
#include <QPainter>

#include <cstring>

namespace {

QImage signedCanvas(const BenchPad &pad, const QSize &size)
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    for (const plain::Segment &segment : pad.segments())
        plain::drawSegment(canvas, segment, Qt::black);
    return canvas;
}

void ignore(char *) { }

// One push for each packet, with half of the signature on the canvas already.
void push(benchmark::State &state, const QSize &size, int type)
{
    const BenchPad pad(*familyOfName("S210"), size);
    const size_t half = pad.packets().size() / 2;
    const size_t wanted = size.width() > 1000 ? 12 : 40;
    for (size_t i = 0; i < half; ++i)
        pad.send(pad.packets()[i]);
    KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, type, ignore);
    QImage canvas = signedCanvas(pad, size);
    std::vector<Packet> moves;
    for (size_t i = half; moves.size() < wanted; ++i) {
        if (pad.packets()[i].status == KVSPDARI_PS_PEN_MOVE)
            moves.push_back(pad.packets()[i]);
    }
    pad.send({moves[0].x, moves[0].y, moves[0].pressure, KVSPDARI_PS_PEN_DOWN});
    const auto library = [&] {
        for (const Packet &move : moves)
            pad.send(move);
    };
    const auto plainWay = [&] {
        for (size_t i = 0; i < moves.size(); ++i) {
            plain::drawSegment(canvas, pad.segments()[i], Qt::black);
            delete[] plain::imageText(canvas, type == EBITI_PNG ? "PNG" : "JPG", type == EBITI_PNG);
        }
    };
    compare::run(state, library, plainWay, static_cast<double>(moves.size()));
}

class PlainWidget : public QWidget
{
public:
    explicit PlainWidget(const QImage &canvas)
        : m_canvas(canvas)
    {
    }
    void paintEvent(QPaintEvent *) override { plain::paint(*this, m_canvas); }
    void clear() { m_canvas.fill(Qt::white); }

private:
    QImage m_canvas;
};

/// The signing widget and the plain one. Both are shown and have the same picture.
struct TwoWidgets
{
    explicit TwoWidgets(const QSize &size)
        : pad(*familyOfName("S300"), size, true)
        , plainWidget(signedCanvas(pad, size))
    {
        pad.sign();
        plainWidget.resize(size);
        plainWidget.show();
        QApplication::processEvents();
    }

    QWidget &library() const { return *pad.widget(); }

    const BenchPad pad;
    PlainWidget plainWidget;
};

void repaint(benchmark::State &state, const QSize &size)
{
    TwoWidgets widgets(size);
    compare::run(
        state, [&] { widgets.library().repaint(); }, [&] { widgets.plainWidget.repaint(); });
}

// Renders into an image, as an application does to take a picture of its window.
void render(benchmark::State &state, const QSize &size, QImage::Format format)
{
    TwoWidgets widgets(size);
    QImage target(size, format);
    target.fill(Qt::transparent);
    compare::run(
        state, [&] { widgets.library().render(&target); }, [&] { widgets.plainWidget.render(&target); });
}

// Renders a canvas that changed since it was last shown, so nothing remembered about it can help.
void renderCleared(benchmark::State &state, const QSize &size)
{
    TwoWidgets widgets(size);
    QImage target(size, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    const auto library = [&] {
        widgets.pad.clear();
        widgets.library().render(&target);
    };
    const auto plainWay = [&] {
        widgets.plainWidget.clear();
        widgets.plainWidget.render(&target);
    };
    compare::run(state, library, plainWay);
}

void imageText(benchmark::State &state, const QSize &size, int type, bool transparent)
{
    const BenchPad pad(*familyOfName("S300"), size);
    pad.sign();
    const QImage canvas = signedCanvas(pad, size);
    const char *format = type == EBITI_BITMAP ? "BMP" : type == EBITI_JPEG ? "JPG" : "PNG";
    compare::run(
        state,
        [&] { KVS300_Base64EncodeExFree(KVS300_DEVICE, KVS300_Base64EncodeEx(KVS300_DEVICE, type, transparent)); },
        [&] { delete[] plain::imageText(canvas, format, transparent); });
}

void pngFile(benchmark::State &state, const QSize &size, bool transparent)
{
    const BenchPad pad(*familyOfName("S300"), size);
    pad.sign();
    const QImage canvas = signedCanvas(pad, size);
    wchar_t path[] = L"./library.png";
    compare::run(
        state, [&] { KVS300_SaveDrawingImage(KVS300_DEVICE, transparent ? ITI_PNG : ITI_BITMAP, path, IDLI_150DPI); },
        [&] { plain::saveImage(canvas.copy(), "./plain.png", transparent); });
}

void svgText(benchmark::State &state, const QSize &size)
{
    const BenchPad pad(*familyOfName("S300"), size);
    pad.sign();
    compare::run(
        state, [&] { KVS300_FreeSVGImageBase64Data(KVS300_DEVICE, KVS300_GetSVGImageBase64Data(KVS300_DEVICE)); },
        [&] { delete[] plain::svgText(pad.segments(), Qt::black, size); });
}

std::vector<_POINTDATA> somePoints(size_t count)
{
    std::vector<_POINTDATA> points(count);
    for (size_t i = 0; i < count; ++i) {
        std::memset(&points[i], 0, sizeof points[i]);
        points[i].nX = static_cast<int16_t>(i);
        points[i].ulTickCount = i * 4;
    }
    return points;
}

void inkEncode(benchmark::State &state)
{
    constexpr int kTimes = 100;
    const BenchPad pad(*familyOfName("S300"), {400, 200});
    for (int i = 0; i < kTimes; ++i)
        pad.sign();
    const auto points = somePoints(static_cast<size_t>(KVS300_GetTotalInkPointsNumber(KVS300_DEVICE)));
    compare::run(
        state, [] { KVS300_Base64EncodeFree(KVS300_DEVICE, KVS300_Base64Encode(KVS300_DEVICE, EBITI_INK)); },
        [&] { delete[] plain::inkText(points); }, static_cast<double>(points.size()));
}

void inkDecode(benchmark::State &state)
{
    const BenchPad pad(*familyOfName("S300"), {400, 200});
    const auto points = somePoints(100000);
    char *text = plain::inkText(points);
    compare::run(
        state, [&] { KVS300_Base64Decode(KVS300_DEVICE, EBITI_INK, text, nullptr); },
        [&] { benchmark::DoNotOptimize(plain::decodedInk(text)); }, static_cast<double>(points.size()));
    delete[] text;
}

void registerAll()
{
    for (const QSize &size : benchSizes()) {
        const std::string name = sizeName(size);
        benchmark::RegisterBenchmark(("push/PNG/" + name).c_str(), push, size, EBITI_PNG)->Iterations(7);
        benchmark::RegisterBenchmark(("push/JPEG/" + name).c_str(), push, size, EBITI_JPEG)->Iterations(7);
        benchmark::RegisterBenchmark(("repaint/" + name).c_str(), repaint, size)->Iterations(61);
        benchmark::RegisterBenchmark(
            ("render/ARGB32_Premultiplied/" + name).c_str(), render, size, QImage::Format_ARGB32_Premultiplied)
            ->Iterations(61);
        benchmark::RegisterBenchmark(("render/RGB32/" + name).c_str(), render, size, QImage::Format_RGB32)
            ->Iterations(61);
        benchmark::RegisterBenchmark(("render/cleared/" + name).c_str(), renderCleared, size)->Iterations(61);
        benchmark::RegisterBenchmark(("text/BMP/" + name).c_str(), imageText, size, EBITI_BITMAP, false)
            ->Iterations(21);
        benchmark::RegisterBenchmark(("text/JPEG/" + name).c_str(), imageText, size, EBITI_JPEG, false)->Iterations(21);
        benchmark::RegisterBenchmark(("text/PNG/" + name).c_str(), imageText, size, EBITI_PNG, true)->Iterations(15);
        benchmark::RegisterBenchmark(("text/PNG-opaque/" + name).c_str(), imageText, size, EBITI_PNG, false)
            ->Iterations(15);
        benchmark::RegisterBenchmark(("file/PNG/" + name).c_str(), pngFile, size, true)->Iterations(15);
        benchmark::RegisterBenchmark(("file/PNG-opaque/" + name).c_str(), pngFile, size, false)->Iterations(15);
        benchmark::RegisterBenchmark(("text/SVG/" + name).c_str(), svgText, size)->Iterations(21);
    }
    benchmark::RegisterBenchmark("ink/encode", inkEncode)->Iterations(41);
    benchmark::RegisterBenchmark("ink/decode", inkDecode)->Iterations(41);
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
