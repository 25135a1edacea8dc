// Time and peak memory of every output for signatures of up to a million points; both should grow linearly.
#include "benchpad.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Output
{
    const char *name;
    std::function<void()> produce;
};

void save(int type, const wchar_t *path)
{
    KVS300_SaveDrawingImage(KVS300_DEVICE, type, const_cast<wchar_t *>(path), 0);
}

const Output kOutputs[] = {
    {"(none)", [] {}},
    {"BMP file", [] { save(ITI_BITMAP, L"./long.bmp"); }},
    {"JPEG file", [] { save(ITI_JPEG, L"./long.jpg"); }},
    {"PNG file", [] { save(ITI_PNG, L"./long.png"); }},
    {"PDF file", [] { save(ITI_PDF, L"./long.pdf"); }},
    {"SVG file", [] { save(ITI_SVG, L"./long.svg"); }},
    {"PNG text", [] { KVS300_Base64EncodeFree(KVS300_DEVICE, KVS300_Base64Encode(KVS300_DEVICE, EBITI_PNG)); }},
    {"SVG text", [] { KVS300_FreeSVGImageBase64Data(KVS300_DEVICE, KVS300_GetSVGImageBase64Data(KVS300_DEVICE)); }},
    {"ink record and back",
        [] {
            char *text = KVS300_Base64Encode(KVS300_DEVICE, EBITI_INK);
            KVS300_Base64Decode(KVS300_DEVICE, EBITI_INK, text, nullptr);
            KVS300_Base64EncodeFree(KVS300_DEVICE, text);
        }},
};

// Each output runs in its own process, so that the peak memory is that of this output alone.
void measure(const Output &output, size_t points)
{
    std::fflush(stdout);
    if (fork() == 0) {
        const BenchPad pad(*familyOfName("S300"), {800, 600});
        for (size_t i = 0; i < points; ++i)
            pad.send(pad.packets()[i % pad.packets().size()]);
        const auto before = std::chrono::steady_clock::now();
        output.produce();
        const double took =
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - before).count();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        std::printf("| %s | %d | %.0f | %.1f |\n", output.name, KVS300_GetTotalInkPointsNumber(KVS300_DEVICE), took,
            static_cast<double>(usage.ru_maxrss) / 1024);
        std::fflush(stdout);
        _exit(0);
    }
    wait(nullptr);
}

} // namespace

int main()
{
    std::printf("| output | points | ms | peak MB |\n|---|---|---|---|\n");
    for (const Output &output : kOutputs) {
        for (const size_t points : {size_t{10000}, size_t{100000}, size_t{1000000}})
            measure(output, points);
    }
    return 0;
}
