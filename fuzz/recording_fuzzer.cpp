// The reader of recordings, which the simulated driver and the tools share, and what the driver makes of them.
#include "script.h"
#include "target.h"

#include <sstream>
#include <stdexcept>

namespace {

bool read(const std::string &text, kvsim::Recording &recording)
{
    std::istringstream in(text);
    try {
        recording = kvsim::readRecording(in, "input");
        return true;
    } catch (const kvsim::RecordingError &) {
        return false;
    }
}

std::string written(const kvsim::Recording &recording)
{
    std::ostringstream out;
    kvsim::writeRecording(out, recording);
    return out.str();
}

/// Loads only bundled fingerprints, so that no file is opened.
void play(const std::string &text, int deviceType)
{
    const ModelRow *pad = modelOfType(deviceType);
    KV_PROMISE(pad != nullptr);
    try {
        kvsim::OpenedRecording opened(std::make_unique<std::istringstream>(text), "input", kvsim::Source{});
        opened.scriptFor(*pad, 2048);
    } catch (const std::runtime_error &) {
        return;
    }
}

} // namespace

// Writes what could be read, and checks that it is read again as the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    kvsim::Recording recording;
    const std::string given(reinterpret_cast<const char *>(data), size);
    if (!read(given, recording))
        return 0;
    play(given, 7);
    const std::string text = written(recording);
    kvsim::Recording again;
    KV_PROMISE(read(text, again));
    KV_PROMISE(again.model == recording.model);
    KV_PROMISE(again.padVersion == recording.padVersion);
    KV_PROMISE(again.events.size() == recording.events.size());
    KV_PROMISE(written(again) == text);
    return 0;
}
