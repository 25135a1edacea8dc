// Peak memory of capturing a signature and making its image as a text or a file, by the library and by the plain way.
// Each runs in its own process, because a peak is that of a whole process.
#include "benchpad.h"
#include "plain.h"

#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The peak resident memory of a process that does this work, in KiB.
long peakOf(const std::function<void()> &work)
{
    int ends[2];
    if (pipe(ends) != 0)
        return 0;
    if (fork() == 0) {
        work();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        const long peak = usage.ru_maxrss;
        if (write(ends[1], &peak, sizeof peak) != sizeof peak)
            _exit(1);
        _exit(0);
    }
    long peak = 0;
    const bool got = read(ends[0], &peak, sizeof peak) == sizeof peak;
    wait(nullptr);
    close(ends[0]);
    close(ends[1]);
    return got ? peak : 0;
}

struct Output
{
    const char *name;
    const char *format; ///< a text's format, or a file's suffix
    int type;
    bool file;
};

const Output kOutputs[] = {
    {"PNG text", "PNG", EBITI_PNG, false},
    {"BMP text", "BMP", EBITI_BITMAP, false},
    {"PNG file", "png", ITI_PNG, true},
    {"BMP file", "bmp", ITI_BITMAP, true},
    {"JPEG file", "jpg", ITI_JPEG, true},
};

void byLibrary(const Output &output, const QSize &size)
{
    const BenchPad pad(*familyOfName("S300"), size);
    pad.sign();
    if (output.file) {
        std::wstring path = L"./memory." + QString(output.format).toStdWString();
        KVS300_SaveDrawingImage(KVS300_DEVICE, output.type, path.data(), IDLI_150DPI);
    } else {
        KVS300_Base64EncodeFree(KVS300_DEVICE, KVS300_Base64Encode(KVS300_DEVICE, output.type));
    }
}

void byPlainWay(const Output &output, const QSize &size)
{
    const BenchPad pad(*familyOfName("S300"), {1, 1}); // only for its segments, so its canvas is as small as possible
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    std::vector<_POINTDATA> points;
    for (const plain::Segment &segment : pad.segments()) {
        plain::drawSegment(canvas, {segment.from * size.width(), segment.to * size.height(), segment.width}, Qt::black);
        points.push_back({});
    }
    const bool transparent = output.format[0] == 'P' || output.format[0] == 'p';
    if (output.file)
        plain::saveImage(canvas, (std::string("./memory.") + output.format).c_str(), transparent);
    else
        delete[] plain::imageText(canvas, output.format, transparent);
}

} // namespace

int main()
{
    std::printf("| canvas | output | library MB | plain MB | ratio |\n|---|---|---|---|---|\n");
    for (const QSize &size : benchSizes()) {
        for (const Output &output : kOutputs) {
            const double libraryMb = static_cast<double>(peakOf([&] { byLibrary(output, size); })) / 1024;
            const double plainMb = static_cast<double>(peakOf([&] { byPlainWay(output, size); })) / 1024;
            std::printf("| %s | %s | %.1f | %.1f | %.2f |\n", sizeName(size).c_str(), output.name, libraryMb, plainMb,
                libraryMb / plainMb);
        }
    }
    return 0;
}
