// Peak memory of a captured signature with its PNG text, the library beside the plain way, each in a process of its
// own.
#include "benchpad.h"
#include "plain.h"

#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Peak resident memory in KiB.
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

} // namespace

int main()
{
    std::printf("| canvas | output | library MB | plain MB | ratio |\n|---|---|---|---|---|\n");
    for (const QSize &size : benchSizes()) {
        for (const int type : {EBITI_PNG, EBITI_BITMAP}) {
            const auto library = [&] {
                const BenchPad pad(benchFamily("S300"), size);
                pad.sign();
                KVS300_Base64EncodeFree(KVS300_DEVICE, KVS300_Base64Encode(KVS300_DEVICE, type));
            };
            const auto plainWay = [&] {
                const BenchPad pad(benchFamily("S300"), {1, 1}); // its packets and segments, and no canvas to speak of
                QImage canvas(size, QImage::Format_ARGB32);
                canvas.fill(Qt::white);
                std::vector<_POINTDATA> points;
                for (const plain::Segment &segment : pad.segments()) {
                    plain::drawSegment(
                        canvas, {segment.from * size.width(), segment.to * size.height(), segment.width}, Qt::black);
                    points.push_back({});
                }
                delete[] plain::imageText(canvas, type == EBITI_PNG ? "PNG" : "BMP", type == EBITI_PNG);
            };
            const double libraryMb = static_cast<double>(peakOf(library)) / 1024;
            const double plainMb = static_cast<double>(peakOf(plainWay)) / 1024;
            std::printf("| %s | %s | %.1f | %.1f | %.2f |\n", sizeName(size).c_str(), type == EBITI_PNG ? "PNG" : "BMP",
                libraryMb, plainMb, libraryMb / plainMb);
        }
    }
    return 0;
}
