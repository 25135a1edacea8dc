/// @file
/// The events of a recording: what each is, and how its line is read and written. FORMAT.md describes them.
#ifndef RECORDINGEVENTS_H
#define RECORDINGEVENTS_H

#include "simulatorcontrol.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvsim {

using Packet = KVSIM_PACKET;

/// What happens at one moment of a recording.
struct Event
{
    enum class Kind
    {
        Pen,
        Fingerprint,
        // Faults:
        Raw, ///< a packet that is never mapped to another pad
        Repeat, ///< the last packet once more, or often
        Stall, ///< nothing comes for a while, then all that was held back
        Answer, ///< an operation answers a result from now on
        Text, ///< a text query writes a text from now on
        Screen, ///< pictures take this long from now on
        Unplug,
        Plug
    };
    Kind kind = Kind::Pen;
    std::int64_t timeUs = 0;
    Packet packet{}; ///< Pen, Raw
    std::string file{}; ///< Fingerprint: PGM file, relative to the recording; "-" for a null image
    int score = 0; ///< Fingerprint
    std::string operation{}; ///< Answer, Text: without KVSPDAPI_
    int value = 0; ///< Answer: the result; Repeat: how often; Stall, Screen: milliseconds
    std::optional<std::string> text{}; ///< Text; without one the query writes nothing
};

/// Whether a line that begins with this field is an event, in a recording of that version.
bool startsEvent(std::string_view firstField, int version);

/// The first version of the format that has this event.
int versionOf(const Event &event);

/// Reads a line of a recording of that version. Returns an empty text, or the reason why the line is refused.
std::string parseEvent(std::string_view line, int version, Event &event);

/// The line without its end.
std::string eventLine(const Event &event);

} // namespace kvsim

#endif
