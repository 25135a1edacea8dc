#include "fitting.h"

#include <algorithm>
#include <cmath>

namespace kvsim {

std::vector<Event> fitIntoPad(const std::vector<Sample> &samples, const ModelRow &pad, double width, double height)
{
    if (samples.empty())
        return {};
    const auto [left, right] =
        std::minmax_element(samples.begin(), samples.end(), [](const Sample &a, const Sample &b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(samples.begin(), samples.end(), [](const Sample &a, const Sample &b) { return a.y < b.y; });
    constexpr double kSmallest = 1e-9; // a single dot has no size
    const double scale = std::min(width * pad.rawSpanX / std::max(right->x - left->x, kSmallest),
        height * pad.rawSpanY / std::max(bottom->y - top->y, kSmallest));
    const double middleX = (left->x + right->x) / 2, middleY = (top->y + bottom->y) / 2;
    const double beginMs = samples.front().timeMs;
    std::vector<Event> events;
    for (const Sample &sample : samples) {
        Event event;
        event.timeUs = std::llround((sample.timeMs - beginMs) * 10) * 100; // tenths of a millisecond
        event.packet.x =
            static_cast<int>(std::lround(pad.rawOffsetX + pad.rawSpanX / 2.0 + (sample.x - middleX) * scale));
        event.packet.y =
            static_cast<int>(std::lround(pad.rawOffsetY + pad.rawSpanY / 2.0 + (sample.y - middleY) * scale));
        event.packet.pressure = static_cast<int>(std::lround(sample.pressure * pad.maxPressure));
        event.packet.status = sample.state;
        events.push_back(event);
    }
    return events;
}

} // namespace kvsim
