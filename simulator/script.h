/// @file
/// A recording made ready for one pad: mapped to its raw units, with its fingerprints loaded.
#ifndef SCRIPT_H
#define SCRIPT_H

#include "modelrows.h"
#include "recording.h"

#include <istream>
#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kvsim {

struct Fingerprint
{
    std::shared_ptr<const std::vector<unsigned char>> image; ///< null: the pad sends a null pointer
    int score = 0;
};

/// Changes of how the pad answers, which take effect together.
using FaultsSetIn = std::shared_ptr<const std::vector<Event>>;

/// What the pad does at one moment: a callback, or a change of how it answers.
struct Delivery
{
    std::int64_t timeUs = 0;
    std::variant<Packet, Fingerprint, FaultsSetIn> what{};
    int count = 1; ///< how often a packet comes, all at once
};

struct Script
{
    std::vector<Delivery> deliveries{};
};

/// Converts a packet of one pad to another: the same place in the writing area, the same share of the pressure.
Packet mapPacket(
    const Packet &packet, const ModelRow &from, int fromMaxPressure, const ModelRow &to, int toMaxPressure);

/// Opens recordings and what they refer to, from the bundle or from the file system.
struct Source
{
    bool bundled = true;
    std::string directory{}; ///< with a closing slash, or empty

    /// Throws std::runtime_error.
    std::unique_ptr<std::istream> open(const std::string &name) const;
};

/// Turns events into deliveries, in their order. A fingerprint that several events name is loaded once.
class EventTranslator
{
public:
    struct Pads
    {
        const ModelRow *recorded;
        int recordedMaxPressure;
        const ModelRow *played;
        int playedMaxPressure;
    };
    EventTranslator(Source source, const Pads &pads);

    /// Throws std::runtime_error for a fingerprint that cannot be loaded.
    void translate(const Event &event, std::vector<Delivery> &deliveries);

    /// The same for several events that change answers at one moment, or for a single event of any kind.
    void translate(const std::vector<Event> &events, std::vector<Delivery> &deliveries);

private:
    std::shared_ptr<const std::vector<unsigned char>> image(const std::string &file);

    Source m_source;
    Pads m_pads;
    std::map<std::string, std::shared_ptr<const std::vector<unsigned char>>> m_images;
    Packet m_lastPacket{};
    std::int64_t m_heldUntilUs = 0;
};

/// A recording whose header and opening (the changes of answers at time 0) have been read, and nothing more yet.
class OpenedRecording
{
public:
    /// A bundled recording or a file. Throws std::runtime_error with file, line and reason.
    explicit OpenedRecording(const std::string &recording);

    /// One that comes from any stream of bytes. The name is only used in messages.
    OpenedRecording(std::unique_ptr<std::istream> stream, std::string name, Source source);

    /// The faults at time 0, before anything else happens.
    const std::vector<Event> &opening() const { return m_opening; }

    /// The recorded pad's version text; empty when it is not known or this pad is of another model.
    std::string versionTextFor(const ModelRow &pad) const;

    /// Reads the rest. Throws std::runtime_error with file, line and reason.
    Script scriptFor(const ModelRow &pad, int maxPressure);

private:
    struct Place
    {
        Source source;
        std::string name; ///< relative to the source
    };
    static Place placeOf(const std::string &recording);
    explicit OpenedRecording(const Place &place);

    Source m_source;
    std::unique_ptr<std::istream> m_stream;
    RecordingReader m_reader;
    const ModelRow *m_recorded;
    std::vector<Event> m_opening;
    std::vector<Event> m_first; ///< the event after the opening, if there is one
};

/// True for events that change how the pad answers, false for what it sends.
bool changesAnswers(const Event &event);

} // namespace kvsim

#endif
