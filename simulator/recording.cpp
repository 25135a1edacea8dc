#include "recording.h"

#include "padtable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <istream>
#include <ostream>

namespace kvsim {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr double kLongestMs = 1e9; // eleven days

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string quoted(std::string_view text)
{
    constexpr std::size_t kShown = 40;
    return "'" + std::string(text.substr(0, kShown)) + (text.size() > kShown ? "...'" : "'");
}

/// Fields of an event line; one more than the longest event has, so that a surplus is noticed.
struct Fields
{
    std::array<std::string_view, 6> at{};
    std::size_t count = 0;
};

Fields split(std::string_view line)
{
    Fields fields;
    while (!line.empty() && fields.count < fields.at.size()) {
        const auto length = std::min(line.find_first_of(kBlanks), line.size());
        fields.at[fields.count++] = line.substr(0, length);
        line = trimmed(line.substr(length));
    }
    return fields;
}

/// An empty reason means that the field was read.
std::string parseInt(std::string_view field, const char *what, int &value)
{
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error == std::errc::result_out_of_range)
        return std::string(what) + " " + quoted(field) + " is out of range";
    if (error != std::errc() || end != field.data() + field.size())
        return std::string(what) + " " + quoted(field) + " is not a whole number";
    return {};
}

std::string parseTime(std::string_view field, std::int64_t &timeUs)
{
    double ms = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), ms, std::chars_format::fixed);
    if (error == std::errc::invalid_argument || end != field.data() + field.size())
        return "time " + quoted(field) + " is not a number of milliseconds";
    if (error != std::errc() || !(ms >= 0 && ms <= kLongestMs))
        return "time " + quoted(field) + " is out of range";
    timeUs = std::llround(ms * 1000);
    return {};
}

bool startsNumber(std::string_view field)
{
    return field.find_first_of("+-.0123456789") == 0;
}

} // namespace

RecordingError::RecordingError(const std::string &file, int line, const std::string &reason)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason)
{
}

RecordingReader::RecordingReader(std::istream &in, std::string name)
    : m_in(in)
    , m_name(std::move(name))
{
    readHeader();
}

void RecordingReader::refuse(const std::string &reason) const
{
    throw RecordingError(m_name, std::max(m_lineNumber, 1), reason);
}

bool RecordingReader::readLine()
{
    while (std::getline(m_in, m_line)) {
        ++m_lineNumber;
        m_line = trimmed(m_line);
        if (!m_line.empty() && m_line.front() != '#')
            return true;
    }
    if (m_in.bad())
        refuse("cannot be read");
    return false;
}

void RecordingReader::readHeader()
{
    bool hasVersion = false;
    while (!m_lineWaits && readLine()) {
        const std::string_view firstField = split(m_line).at[0];
        if (startsNumber(firstField) || m_line.find(':') == std::string::npos)
            m_lineWaits = true;
        else
            takeHeaderLine(m_line, hasVersion);
    }
    if (!hasVersion && m_model.empty() && m_notes.empty())
        refuse("header missing");
    if (!hasVersion)
        refuse("the header has no version");
    if (m_model.empty())
        refuse("the header has no model");
}

void RecordingReader::takeHeaderLine(std::string_view line, bool &hasVersion)
{
    const auto colon = line.find(':');
    const std::string_view key = trimmed(line.substr(0, colon));
    const std::string_view value = trimmed(line.substr(colon + 1));
    if (key == "version") {
        int version = 0;
        if (const std::string reason = parseInt(value, "version", version); !reason.empty())
            refuse(reason);
        if (version < 1)
            refuse("there is no version " + std::to_string(version));
        if (version > kRecordingVersion)
            refuse("version " + std::to_string(version) + " is newer than " + std::to_string(kRecordingVersion)
                + ", the newest that this program reads");
        hasVersion = true;
    } else if (key == "model") {
        if (!padOfName(value))
            refuse("unknown model " + quoted(value));
        m_model = value;
    } else {
        m_notes.emplace_back(key, value);
    }
}

Event RecordingReader::parseEvent(std::string_view line) const
{
    Event event;
    const Fields fields = split(line);
    const auto need = [&](const std::string &reason) {
        if (!reason.empty())
            refuse(reason);
    };
    if (fields.at[0] == "fingerprint") {
        event.kind = Event::Kind::Fingerprint;
        need(fields.count == 4 ? "" : "a fingerprint is: fingerprint time file score");
        need(parseTime(fields.at[1], event.timeUs));
        event.file = fields.at[2];
        need(parseInt(fields.at[3], "score", event.score));
    } else if (startsNumber(fields.at[0])) {
        need(fields.count == 5 ? "" : "a pen packet is: time x y pressure status");
        need(parseTime(fields.at[0], event.timeUs));
        need(parseInt(fields.at[1], "x", event.packet.x));
        need(parseInt(fields.at[2], "y", event.packet.y));
        need(parseInt(fields.at[3], "pressure", event.packet.pressure));
        need(parseInt(fields.at[4], "status", event.packet.status));
    } else {
        refuse("unknown event " + quoted(fields.at[0]));
    }
    return event;
}

bool RecordingReader::next(Event &event)
{
    if (!m_lineWaits && !readLine())
        return false;
    m_lineWaits = false;
    event = parseEvent(m_line);
    if (event.timeUs < m_lastTimeUs)
        refuse("the time goes backwards");
    m_lastTimeUs = event.timeUs;
    return true;
}

Recording readRecording(std::istream &in, const std::string &name)
{
    RecordingReader reader(in, name);
    Recording recording{reader.model(), reader.notes(), {}};
    for (Event event; reader.next(event);)
        recording.events.push_back(std::move(event));
    return recording;
}

namespace {

/// Milliseconds with as many decimals as they need; a stream's own formatting would follow the locale.
std::string timeText(std::int64_t timeUs)
{
    std::string text = std::to_string(timeUs / 1000);
    if (const auto rest = timeUs % 1000; rest != 0) {
        text += "." + std::to_string(1000 + rest).substr(1);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

std::string eventLine(const Event &event)
{
    if (event.kind == Event::Kind::Fingerprint)
        return "fingerprint " + timeText(event.timeUs) + " " + event.file + " " + std::to_string(event.score);
    std::string line = timeText(event.timeUs);
    for (const int value : {event.packet.x, event.packet.y, event.packet.pressure, event.packet.status})
        line += " " + std::to_string(value);
    return line;
}

} // namespace

void writeRecording(std::ostream &out, const Recording &recording)
{
    out << "version: " << std::to_string(kRecordingVersion) << "\nmodel: " << recording.model << '\n';
    for (const auto &[key, value] : recording.notes)
        out << key << ": " << value << '\n';
    for (const Event &event : recording.events)
        out << eventLine(event) << '\n';
}

} // namespace kvsim
