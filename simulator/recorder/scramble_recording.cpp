/// @file
/// kv-scramble-recording: a recording with another shape in place of the signature, to be handed on with a report.
#include "greyimage.h"
#include "recording.h"
#include "scramble.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace {

using namespace kvsim;

void scramble(Recording &recording, const std::string &fingerName)
{
    Scrambler scrambler(*modelOfName(recording.model));
    for (Event &event : recording.events) {
        if (event.kind == Event::Kind::Pen || event.kind == Event::Kind::Raw)
            event.packet = scrambler.next(event.packet);
        else if (event.kind == Event::Kind::Fingerprint && event.file != "-")
            event.file = fingerName;
    }
    recording.notes = {{"scrambled", "the places of the packets and the fingerprints"}};
}

std::ofstream create(const std::string &path)
{
    if (std::ifstream(path))
        throw std::runtime_error(path + ": is there already");
    std::ofstream out(path, std::ios::binary);
    if (!out)
        throw std::runtime_error(path + ": cannot be written");
    return out;
}

void run(const std::string &from, const std::string &to)
{
    std::ifstream in(from, std::ios::binary);
    if (!in)
        throw std::runtime_error(from + ": cannot be read");
    Recording recording = readRecording(in, from);
    const auto slash = to.rfind('/');
    const std::string fingerPath = to + "-finger.pgm";
    scramble(recording, slash == std::string::npos ? fingerPath : fingerPath.substr(slash + 1));
    std::ofstream out = create(to);
    writeRecording(out, recording);
    for (const Event &event : recording.events) {
        if (event.kind != Event::Kind::Fingerprint || event.file == "-")
            continue;
        std::ofstream finger = create(fingerPath);
        writePgm(finger, {kFingerprintWidth, kFingerprintHeight, scrambledFingerprint()});
        break;
    }
    if (!out.flush())
        throw std::runtime_error(to + ": cannot be written");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: kv-scramble-recording FROM.kvrec TO.kvrec\n", stderr);
        return 2;
    }
    try {
        run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kv-scramble-recording: %s\n", error.what());
        return 1;
    }
}
