// What a virtual pad's window tells the driver over its socket.
#include "target.h"
#include "windowreader.h"

#include <sstream>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<const char *>(data), size));
    try {
        kvsim::WindowReader window(in);
        KV_PROMISE(!window.model().empty());
        KV_PROMISE(window.opening().size() <= kvsim::WindowReader::kLargestState);
        KV_PROMISE(window.answer() == window.opening().back().value);
        std::vector<kvsim::Event> events;
        while (window.next(events))
            KV_PROMISE(!events.empty() && events.size() <= kvsim::WindowReader::kLargestState);
    } catch (const std::runtime_error &error) {
        KV_PROMISE(*error.what() != '\0');
    }
    return 0;
}
