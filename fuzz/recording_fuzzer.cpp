// The reader of recordings, which the simulated driver and the tools share.
#include "recording.h"
#include "target.h"

#include <sstream>

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

} // namespace

// What could be read is written, and read again as the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    kvsim::Recording recording;
    if (!read(std::string(reinterpret_cast<const char *>(data), size), recording))
        return 0;
    const std::string text = written(recording);
    kvsim::Recording again;
    KV_PROMISE(read(text, again));
    KV_PROMISE(again.model == recording.model);
    KV_PROMISE(again.padVersion == recording.padVersion);
    KV_PROMISE(again.events.size() == recording.events.size());
    KV_PROMISE(written(again) == text);
    return 0;
}
