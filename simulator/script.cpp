#include "script.h"

#include "bundled.h"
#include "greyimage.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>
#include <memory>
#include <sstream>

namespace kvsim {

namespace {

int scaled(std::int64_t value, std::int64_t numerator, std::int64_t denominator)
{
    const double exact = static_cast<double>(value) * static_cast<double>(numerator) / static_cast<double>(denominator);
    constexpr double kLowest = std::numeric_limits<int>::min() / 2;
    constexpr double kHighest = std::numeric_limits<int>::max() / 2;
    const double held = std::clamp(exact, kLowest, kHighest);
    return static_cast<int>(held < 0 ? held - 0.5 : held + 0.5);
}

/// Opens recordings and what they refer to, from the bundle or from the file system.
struct Source
{
    bool bundled;
    std::string directory; ///< with a closing slash, or empty

    std::unique_ptr<std::istream> open(const std::string &name) const
    {
        if (bundled) {
            const BundledFile *file = bundledFile(name);
            if (!file)
                throw std::runtime_error(
                    "no file '" + name + "' is built in; the recordings are: " + bundledRecordingNames());
            return std::make_unique<std::istringstream>(
                std::string(reinterpret_cast<const char *>(file->bytes), file->size));
        }
        auto stream = std::make_unique<std::ifstream>(directory + name, std::ios::binary);
        if (!*stream)
            throw std::runtime_error(directory + name + ": " + std::strerror(errno));
        return stream;
    }
};

std::vector<unsigned char> loadFingerprint(const Source &source, const std::string &name)
{
    GreyImage image = readPgm(*source.open(name), name);
    if (image.width != kFingerprintWidth || image.height != kFingerprintHeight)
        throw std::runtime_error(name + ": a fingerprint has 208 by 288 pixels");
    return std::move(image.pixels);
}

/// Fills a script; a fingerprint that several events name is loaded once.
class ScriptMaker
{
public:
    ScriptMaker(const Source &source, const PadModel &pad, int maxPressure)
        : m_source(source)
        , m_pad(pad)
        , m_maxPressure(maxPressure)
    {
    }

    Script make(const std::string &name)
    {
        const auto stream = m_source.open(name);
        RecordingReader reader(*stream, m_source.directory + name);
        const PadModel &recorded = *padOfName(reader.model());
        for (Event event; reader.next(event);) {
            if (event.kind == Event::Kind::Pen)
                m_script.deliveries.push_back(
                    {event.timeUs, mapPacket(event.packet, recorded, m_pad, m_maxPressure), -1, 0});
            else if (m_pad.hasFingerprintSensor)
                m_script.deliveries.push_back({event.timeUs, {}, fingerprintIndex(event.file), event.score});
        }
        return std::move(m_script);
    }

private:
    int fingerprintIndex(const std::string &file)
    {
        const auto [entry, isNew] = m_indexes.emplace(file, static_cast<int>(m_script.fingerprints.size()));
        if (isNew)
            m_script.fingerprints.push_back(loadFingerprint(m_source, file));
        return entry->second;
    }

    const Source &m_source;
    const PadModel &m_pad;
    int m_maxPressure;
    Script m_script;
    std::map<std::string, int> m_indexes;
};

bool isPath(const std::string &recording)
{
    return recording.find('/') != std::string::npos || recording.find('.') != std::string::npos;
}

} // namespace

Packet mapPacket(const Packet &packet, const PadModel &from, const PadModel &to, int maxPressure)
{
    Packet mapped = packet;
    if (from.deviceType != to.deviceType) {
        mapped.x = to.offsetX + scaled(std::int64_t{packet.x} - from.offsetX, to.spanX, from.spanX);
        mapped.y = to.offsetY + scaled(std::int64_t{packet.y} - from.offsetY, to.spanY, from.spanY);
    }
    if (from.maxPressure != maxPressure)
        mapped.pressure = scaled(packet.pressure, maxPressure, from.maxPressure);
    return mapped;
}

Script loadScript(const std::string &recording, const PadModel &pad, int maxPressure)
{
    if (recording == "none")
        return {};
    Source source{!isPath(recording), {}};
    std::string name = recording;
    if (source.bundled) {
        name += ".kvrec";
    } else if (const auto slash = recording.rfind('/'); slash != std::string::npos) {
        source.directory = recording.substr(0, slash + 1);
        name = recording.substr(slash + 1);
    }
    return ScriptMaker(source, pad, maxPressure).make(name);
}

} // namespace kvsim
