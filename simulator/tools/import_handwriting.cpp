/// @file
/// kv-import-handwriting: turns a pen trace of another source into a recording, on the standard output.
#include "fitting.h"
#include "traces.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>

int main(int argc, char **argv)
{
    using namespace kvsim;
    const ModelRow *pad = argc == 3 ? modelOfName(argv[1]) : nullptr;
    if (!pad) {
        std::fputs("usage: kv-import-handwriting MODEL FILE\nmodels:", stderr);
        for (const ModelRow *known : kModelRows)
            std::fprintf(stderr, " %s", known->name);
        std::fputs("\n", stderr);
        return 2;
    }
    std::ifstream file(argv[2]);
    if (!file) {
        std::fprintf(stderr, "%s: %s\n", argv[2], std::strerror(errno));
        return 1;
    }
    try {
        constexpr double kWithoutBorders = 0.8; // a tenth on every side
        Trace trace = readTrace(file, argv[2]);
        Recording recording{std::string(pad->name), std::move(trace.about),
            fitIntoPad(trace.samples, *pad, kWithoutBorders, kWithoutBorders)};
        writeRecording(std::cout, recording);
    } catch (const RecordingError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return std::cout.flush() ? 0 : 1;
}
