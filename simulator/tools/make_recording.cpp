/// @file
/// kv-make-recording: writes a recording of invented handwriting to the standard output.
#include "fitting.h"
#include "styles.h"

#include "kvsignpadsdk_global.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace {

using namespace kvsim;

int usage()
{
    std::fputs("usage: kv-make-recording STYLE [MODEL [SEED]]\nstyles:", stderr);
    for (std::size_t i = 0; !styleNames(i).empty(); ++i)
        std::fprintf(stderr, " %s", styleNames(i).data());
    std::fputs("\nmodels:", stderr);
    for (const ModelRow *pad : kModelRows)
        std::fprintf(stderr, " %s", pad->name);
    std::fputs("\n", stderr);
    return 2;
}

/// The tap on one of the pad's buttons that ends a signature, a moment after the last stroke.
void appendTap(std::vector<Event> &events, const ModelRow &pad, int status)
{
    Event tap;
    tap.timeUs = events.back().timeUs + 900000;
    const int column = status == KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON ? 9 : 1;
    tap.packet = {pad.rawOffsetX + pad.rawSpanX * column / 10, pad.rawOffsetY + pad.rawSpanY + pad.rawSpanY / 20,
        pad.maxPressure / 4, status};
    events.push_back(tap);
    tap.timeUs += 120000;
    tap.packet.pressure = 0;
    tap.packet.status = KVSPDARI_PS_PEN_UP;
    events.push_back(tap);
}

/// While a finger lies on the sensor its images come several times a second; not every one is better than the last.
void addFinger(std::vector<Event> &events)
{
    constexpr std::int64_t kMs = 1000;
    const auto image = [](std::int64_t timeUs, const char *file, int score) {
        Event event;
        event.kind = Event::Kind::Fingerprint;
        event.timeUs = timeUs;
        event.file = file;
        event.score = score;
        return event;
    };
    for (Event &event : events)
        event.timeUs += 1400 * kMs;
    const std::int64_t after = events.back().timeUs + 700 * kMs;
    events.insert(events.begin(),
        {image(0, "finger-faint.pgm", 28), image(250 * kMs, "finger-fair.pgm", 55),
            image(500 * kMs, "finger-fair.pgm", 55)});
    events.insert(events.end(),
        {image(after, "finger-fair.pgm", 55), image(after + 250 * kMs, "finger-clear.pgm", 86),
            image(after + 500 * kMs, "finger-clear.pgm", 86)});
}

} // namespace

int main(int argc, char **argv)
{
    const Style *style = argc >= 2 ? styleOfName(argv[1]) : nullptr;
    const ModelRow *pad = modelOfName(argc >= 3 ? argv[2] : "S310X");
    unsigned seed = 1;
    if (argc >= 4 && std::from_chars(argv[3], argv[3] + std::strlen(argv[3]), seed).ec != std::errc())
        return usage();
    if (!style || !pad || argc > 4)
        return usage();
    Recording recording;
    recording.model = pad->name;
    recording.notes = {{"title", std::string(style->title)},
        {"made-by",
            "kv-make-recording " + std::string(style->name) + " " + recording.model + " " + std::to_string(seed)}};
    recording.events = fitIntoPad(writeByHand(style->plan(), style->manner, seed), *pad, style->width, 0.8);
    if (style->withFinger)
        addFinger(recording.events);
    appendTap(recording.events, *pad,
        style->endsWithCancel ? KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON : KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    writeRecording(std::cout, recording);
    return std::cout.flush() ? 0 : 1;
}
