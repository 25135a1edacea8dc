#include "recordingevents.h"

#include "recordingfields.h"

#include <algorithm>
#include <iterator>

namespace kvsim {

namespace {

using Kind = Event::Kind;

struct Word
{
    std::string_view word; ///< empty for pen packets, whose lines begin with the time
    Kind kind;
    int version;
    std::size_t fields; ///< at least
    const char *form;
};

constexpr Word kWords[] = {
    {"", Kind::Pen, 1, 5, "a pen packet is: time x y pressure status"},
    {"fingerprint", Kind::Fingerprint, 1, 4, "a fingerprint is: fingerprint time file score"},
    {"raw", Kind::Raw, 2, 6, "a raw packet is: raw time x y pressure status"},
    {"repeat", Kind::Repeat, 2, 3, "a repetition is: repeat time count"},
    {"stall", Kind::Stall, 2, 3, "a stall is: stall time milliseconds"},
    {"answer", Kind::Answer, 2, 4, "an answer is: answer time operation result"},
    {"text", Kind::Text, 2, 3, "a text is: text time query [text]"},
    {"screen", Kind::Screen, 2, 3, "a screen's slowness is: screen time milliseconds"},
    {"unplug", Kind::Unplug, 2, 2, "unplugging is: unplug time"},
    {"plug", Kind::Plug, 2, 2, "plugging in is: plug time"},
};

constexpr std::string_view kQueries[] = {
    "GetDevicePenID", "GetDevicePadID", "GetDeviceSecureID", "GetDevicePartsVersion"};
constexpr std::string_view kCommands[] = {"Initial", "UnInitial", "OpenDeviceLCD", "ClearDeviceContent",
    "ShowVersionInfoOnDevice", "SetDevicePenStyle", "ShowFPImageOnDevice"};

template <std::size_t count>
bool has(const std::string_view (&names)[count], std::string_view name)
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

const Word *wordOf(std::string_view firstField)
{
    for (const Word &word : kWords)
        if (word.word.empty() ? startsNumber(firstField) : word.word == firstField)
            return &word;
    return nullptr;
}

std::string parsePacket(const std::string_view *fields, Packet &packet)
{
    const std::pair<const char *, int *> parts[] = {
        {"x", &packet.x}, {"y", &packet.y}, {"pressure", &packet.pressure}, {"status", &packet.status}};
    for (const auto &[what, value] : parts)
        if (const std::string reason = parseInt(*fields++, what, *value); !reason.empty())
            return reason;
    return {};
}

/// The fields after the time.
std::string parseRest(std::string_view line, const std::string_view *fields, Event &event)
{
    switch (event.kind) {
    case Kind::Pen:
    case Kind::Raw:
        return parsePacket(fields, event.packet);
    case Kind::Fingerprint:
        event.file = fields[0];
        return parseInt(fields[1], "score", event.score);
    case Kind::Repeat:
        return parseCount(fields[0], "count", 1, event.value);
    case Kind::Stall:
    case Kind::Screen:
        return parseCount(fields[0], "duration", 0, event.value);
    case Kind::Answer:
        event.operation = fields[0];
        if (!has(kQueries, fields[0]) && !has(kCommands, fields[0]))
            return "unknown operation " + quoted(fields[0]);
        return parseInt(fields[1], "result", event.value);
    case Kind::Text:
        event.operation = fields[0];
        if (const std::string_view text = afterFields(line, 3); !text.empty())
            event.text = text;
        return has(kQueries, fields[0]) ? "" : "unknown text query " + quoted(fields[0]);
    case Kind::Unplug:
    case Kind::Plug:
        break;
    }
    return {};
}

std::string restText(const Event &event)
{
    switch (event.kind) {
    case Kind::Pen:
    case Kind::Raw: {
        std::string text;
        for (const int value : {event.packet.x, event.packet.y, event.packet.pressure, event.packet.status})
            text += " " + std::to_string(value);
        return text;
    }
    case Kind::Fingerprint:
        return " " + event.file + " " + std::to_string(event.score);
    case Kind::Repeat:
    case Kind::Stall:
    case Kind::Screen:
        return " " + std::to_string(event.value);
    case Kind::Answer:
        return " " + event.operation + " " + std::to_string(event.value);
    case Kind::Text:
        return " " + event.operation + (event.text ? " " + *event.text : "");
    case Kind::Unplug:
    case Kind::Plug:
        break;
    }
    return {};
}

const Word &wordOf(Kind kind)
{
    return *std::find_if(std::begin(kWords), std::end(kWords), [=](const Word &word) { return word.kind == kind; });
}

} // namespace

bool startsEvent(std::string_view firstField, int version)
{
    const Word *word = wordOf(firstField);
    return word && word->version <= version;
}

int versionOf(const Event &event)
{
    return event.kind == Kind::Fingerprint && event.file == "-" ? 2 : wordOf(event.kind).version;
}

std::string parseEvent(std::string_view line, int version, Event &event)
{
    const Fields fields = split(line);
    const Word *word = wordOf(fields.at[0]);
    if (!word)
        return "unknown event " + quoted(fields.at[0]);
    if (word->kind == Kind::Text ? fields.count < word->fields : fields.count != word->fields)
        return word->form;
    event = {};
    event.kind = word->kind;
    const std::string_view *time = &fields.at[word->word.empty() ? 0 : 1];
    if (const std::string reason = parseTime(*time, event.timeUs); !reason.empty())
        return reason;
    if (const std::string reason = parseRest(line, time + 1, event); !reason.empty())
        return reason;
    if (versionOf(event) > version)
        return quoted(word->word) + " needs version " + std::to_string(versionOf(event)) + "; the header says "
            + std::to_string(version);
    return {};
}

std::string eventLine(const Event &event)
{
    const Word &word = wordOf(event.kind);
    return std::string(word.word) + (word.word.empty() ? "" : " ") + timeText(event.timeUs) + restText(event);
}

} // namespace kvsim
