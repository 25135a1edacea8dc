#include "recording.h"

#include "padtable.h"
#include "recordingfields.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace kvsim {

namespace {

constexpr std::string_view kPadVersionKey = "pad-version";

}

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
    while (!m_lineWaits && readLine()) {
        const std::string_view firstField = split(m_line).at[0];
        // The words of version 2 were part of keys in version 1.
        if (startsEvent(firstField, m_version) || startsNumber(firstField) || m_line.find(':') == std::string::npos)
            m_lineWaits = true;
        else
            takeHeaderLine(m_line);
    }
    if (m_version == 0 && m_model.empty() && m_notes.empty())
        refuse("header missing");
    if (m_version == 0)
        refuse("the header has no version");
    if (m_model.empty())
        refuse("the header has no model");
    if (m_version >= 2)
        takePadVersion();
}

void RecordingReader::takeHeaderLine(std::string_view line)
{
    const auto colon = line.find(':');
    const std::string_view key = trimmed(line.substr(0, colon));
    const std::string_view value = trimmed(line.substr(colon + 1));
    if (key == "version") {
        takeVersion(value);
    } else if (key == "model") {
        if (!padOfName(value))
            refuse("unknown model " + quoted(value));
        m_model = value;
    } else {
        m_notes.emplace_back(key, value);
    }
}

void RecordingReader::takeVersion(std::string_view value)
{
    int version = 0;
    if (const std::string reason = parseInt(value, "version", version); !reason.empty())
        refuse(reason);
    if (version < 1)
        refuse("there is no version " + std::to_string(version));
    if (version > kRecordingVersion)
        refuse("version " + std::to_string(version) + " is newer than " + std::to_string(kRecordingVersion)
            + ", the newest that this program reads");
    m_version = version;
}

/// In version 1 this key was one for people.
void RecordingReader::takePadVersion()
{
    const auto note =
        std::find_if(m_notes.begin(), m_notes.end(), [](const auto &line) { return line.first == kPadVersionKey; });
    if (note == m_notes.end())
        return;
    m_padVersion = std::move(note->second);
    m_notes.erase(note);
}

bool RecordingReader::next(Event &event)
{
    if (!m_lineWaits && !readLine())
        return false;
    m_lineWaits = false;
    if (const std::string reason = parseEvent(m_line, m_version, event); !reason.empty())
        refuse(reason);
    if (event.timeUs < m_lastTimeUs)
        refuse("the time goes backwards");
    m_lastTimeUs = event.timeUs;
    m_hadPacket |= event.kind == Event::Kind::Pen || event.kind == Event::Kind::Raw;
    if (event.kind == Event::Kind::Repeat && !m_hadPacket)
        refuse("there is no packet to repeat yet");
    return true;
}

Recording readRecording(std::istream &in, const std::string &name)
{
    RecordingReader reader(in, name);
    Recording recording{reader.model(), reader.notes(), {}, reader.padVersion()};
    for (Event event; reader.next(event);)
        recording.events.push_back(std::move(event));
    return recording;
}

void writeRecording(std::ostream &out, const Recording &recording)
{
    int version = recording.padVersion.empty() ? 1 : 2;
    for (const Event &event : recording.events)
        version = std::max(version, versionOf(event));
    out << "version: " << std::to_string(version) << "\nmodel: " << recording.model << '\n';
    if (!recording.padVersion.empty())
        out << kPadVersionKey << ": " << recording.padVersion << '\n';
    for (const auto &[key, value] : recording.notes)
        out << key << ": " << value << '\n';
    for (const Event &event : recording.events)
        out << eventLine(event) << '\n';
}

} // namespace kvsim
