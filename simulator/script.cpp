#include "script.h"

#include "bundled.h"
#include "greyimage.h"
#include "modelrules.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>
#include <sys/stat.h>

namespace kvsim {

namespace {

int scaled(std::int64_t value, std::int64_t numerator, std::int64_t denominator)
{
    const double exact = static_cast<double>(value) * static_cast<double>(numerator) / static_cast<double>(denominator);
    constexpr double kLowest = std::numeric_limits<int>::min() / 2.0;
    constexpr double kHighest = std::numeric_limits<int>::max() / 2.0;
    const double held = std::clamp(exact, kLowest, kHighest);
    return static_cast<int>(held < 0 ? held - 0.5 : held + 0.5);
}

std::vector<unsigned char> loadFingerprint(const Source &source, const std::string &name)
{
    GreyImage image = readPgm(*source.open(name), name);
    if (image.width != kFingerprintWidth || image.height != kFingerprintHeight)
        throw std::runtime_error(name + ": a fingerprint has " + std::to_string(kFingerprintWidth) + " by "
            + std::to_string(kFingerprintHeight) + " pixels");
    return std::move(image.pixels);
}

bool isPath(const std::string &recording)
{
    return recording.find('/') != std::string::npos || recording.find('.') != std::string::npos;
}

} // namespace

Packet mapPacket(const Packet &packet, const ModelRow &from, int fromMaxPressure, const ModelRow &to, int toMaxPressure)
{
    Packet mapped = packet;
    if (from.deviceType != to.deviceType) {
        mapped.x = to.rawOffsetX + scaled(std::int64_t{packet.x} - from.rawOffsetX, to.rawSpanX, from.rawSpanX);
        mapped.y = to.rawOffsetY + scaled(std::int64_t{packet.y} - from.rawOffsetY, to.rawSpanY, from.rawSpanY);
    }
    if (fromMaxPressure != toMaxPressure)
        mapped.pressure = scaled(packet.pressure, toMaxPressure, fromMaxPressure);
    return mapped;
}

std::unique_ptr<std::istream> Source::open(const std::string &name) const
{
    const bool isAbsolute = !name.empty() && name.front() == '/';
    if (bundled && !isAbsolute) {
        const BundledFile *file = bundledFile(name);
        if (!file)
            throw std::runtime_error(
                "no file '" + name + "' is built in; the recordings are: " + bundledRecordingNames());
        return std::make_unique<std::istringstream>(
            std::string(reinterpret_cast<const char *>(file->bytes), file->size));
    }
    const std::string path = isAbsolute ? name : directory + name;
    if (struct stat info{}; stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode))
        throw std::runtime_error(path + ": is not a regular file"); // reading a pipe could wait for ever
    auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
    if (!*stream)
        throw std::runtime_error(path + ": " + std::strerror(errno));
    return stream;
}

EventTranslator::EventTranslator(Source source, const Pads &pads)
    : m_source(std::move(source))
    , m_pads(pads)
{
}

std::shared_ptr<const std::vector<unsigned char>> EventTranslator::image(const std::string &file)
{
    if (file == "-")
        return nullptr;
    auto &known = m_images[file];
    if (!known)
        known = std::make_shared<const std::vector<unsigned char>>(loadFingerprint(m_source, file));
    return known;
}

void EventTranslator::translate(const Event &event, std::vector<Delivery> &deliveries)
{
    const std::int64_t timeUs = std::max(event.timeUs, m_heldUntilUs);
    switch (event.kind) {
    case Event::Kind::Pen:
        m_lastPacket = mapPacket(
            event.packet, *m_pads.recorded, m_pads.recordedMaxPressure, *m_pads.played, m_pads.playedMaxPressure);
        deliveries.push_back({timeUs, m_lastPacket});
        return;
    case Event::Kind::Raw:
        m_lastPacket = event.packet;
        deliveries.push_back({timeUs, m_lastPacket});
        return;
    case Event::Kind::Repeat:
        deliveries.push_back({timeUs, m_lastPacket, event.value});
        return;
    case Event::Kind::Stall:
        m_heldUntilUs = timeUs + std::int64_t{event.value} * 1000;
        return;
    case Event::Kind::Fingerprint:
        if (m_pads.played->hasFingerprintSensor)
            deliveries.push_back({timeUs, Fingerprint{image(event.file), event.score}});
        return;
    default:
        deliveries.push_back({timeUs, std::make_shared<const std::vector<Event>>(1, event)});
    }
}

void EventTranslator::translate(const std::vector<Event> &events, std::vector<Delivery> &deliveries)
{
    if (events.size() == 1)
        return translate(events.front(), deliveries);
    const std::int64_t timeUs = std::max(events.back().timeUs, m_heldUntilUs);
    deliveries.push_back({timeUs, std::make_shared<const std::vector<Event>>(events)});
}

bool changesAnswers(const Event &event)
{
    switch (event.kind) {
    case Event::Kind::Answer:
    case Event::Kind::Text:
    case Event::Kind::Screen:
    case Event::Kind::Unplug:
    case Event::Kind::Plug:
        return true;
    default:
        return false;
    }
}

OpenedRecording::Place OpenedRecording::placeOf(const std::string &recording)
{
    if (!isPath(recording))
        return {{true, {}}, recording + ".kvrec"};
    const auto slash = recording.rfind('/');
    const auto nameBegin = slash == std::string::npos ? 0 : slash + 1;
    return {{false, recording.substr(0, nameBegin)}, recording.substr(nameBegin)};
}

OpenedRecording::OpenedRecording(const std::string &recording)
    : OpenedRecording(placeOf(recording))
{
}

OpenedRecording::OpenedRecording(const Place &place)
    : OpenedRecording(place.source.open(place.name), place.source.directory + place.name, place.source)
{
}

OpenedRecording::OpenedRecording(std::unique_ptr<std::istream> stream, std::string name, Source source)
    : m_source(std::move(source))
    , m_stream(std::move(stream))
    , m_reader(*m_stream, std::move(name))
    , m_recorded(modelOfName(m_reader.model()))
{
    for (Event event; m_first.empty() && m_reader.next(event);)
        (changesAnswers(event) && event.timeUs == 0 ? m_opening : m_first).push_back(std::move(event));
}

std::string OpenedRecording::versionTextFor(const ModelRow &pad) const
{
    return m_recorded == &pad ? m_reader.padVersion() : std::string();
}

Script OpenedRecording::scriptFor(const ModelRow &pad, int maxPressure)
{
    Script script;
    const int recordedMaxPressure = maxPressureOf(*m_recorded, m_reader.padVersion()).value_or(m_recorded->maxPressure);
    EventTranslator translator(m_source, {m_recorded, recordedMaxPressure, &pad, maxPressure});
    for (const Event &event : m_first)
        translator.translate(event, script.deliveries);
    for (Event event; m_reader.next(event);)
        translator.translate(event, script.deliveries);
    return script;
}

} // namespace kvsim
