#include "recording.h"

#include "modelrows.h"
#include "recordingfields.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace kvsim {

namespace {

constexpr std::string_view kPadVersionKey = "pad-version";

/// Whether a header line with this key would be read as an event.
bool looksLikeEvent(std::string_view key, int version)
{
    const std::string_view firstField = split(key).at[0];
    return startsNumber(firstField) || startsEvent(firstField, version);
}

} // namespace

RecordingError::RecordingError(const std::string &file, int line, const std::string &reason)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + reason)
{
}

RecordingReader::RecordingReader(std::istream &in, std::string name)
    : m_in(in)
    , m_name(std::move(name))
    , m_bytes(kLongestLine + 1)
{
    readHeader();
}

void RecordingReader::refuseLine(int line, const std::string &reason) const
{
    throw RecordingError(m_name, std::max(line, 1), reason);
}

bool RecordingReader::readLine()
{
    while (m_in.getline(m_bytes.data(), static_cast<std::streamsize>(m_bytes.size())) || m_in.gcount() > 0) {
        ++m_lineNumber;
        const bool hasEnd = !m_in.eof();
        if (hasEnd && m_in.fail() && !m_in.bad())
            refuse("the line is longer than " + std::to_string(kLongestLine) + " bytes");
        const auto length = static_cast<std::size_t>(m_in.gcount()) - (hasEnd ? 1 : 0);
        m_line = trimmed({m_bytes.data(), length});
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
        // Words that begin an event in version 2 were free for header keys in version 1.
        if (looksLikeEvent(m_line, m_version) || m_line.find(':') == std::string::npos)
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
    checkNotes();
    if (m_version >= 2)
        takePadVersion();
}

/// Called after the header: notes may come before the version line, which says which keys are events.
void RecordingReader::checkNotes()
{
    for (std::size_t i = 0; i < m_notes.size(); ++i)
        if (looksLikeEvent(m_notes[i].first, m_version))
            refuseLine(m_noteLines[i],
                "in version " + std::to_string(m_version) + " no key begins with "
                    + quoted(split(m_notes[i].first).at[0]) + ", which begins an event");
}

void RecordingReader::takeHeaderLine(std::string_view line)
{
    const auto colon = line.find(':');
    const std::string_view key = trimmed(line.substr(0, colon));
    const std::string_view value = trimmed(line.substr(colon + 1));
    if (key == "version") {
        takeVersion(value);
    } else if (key == "model") {
        if (!modelOfName(value))
            refuse("unknown model " + quoted(value));
        m_model = value;
    } else {
        if (m_notes.size() == kMostHeaderLines)
            refuse("the header has more than " + std::to_string(kMostHeaderLines) + " lines");
        m_notes.emplace_back(key, value);
        m_noteLines.push_back(m_lineNumber);
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

/// In version 1 this key is a note like any other. The last line counts, as with the other keys.
void RecordingReader::takePadVersion()
{
    const auto isPadVersion = [](const auto &line) { return line.first == kPadVersionKey; };
    for (const auto &note : m_notes)
        if (isPadVersion(note))
            m_padVersion = note.second;
    m_notes.erase(std::remove_if(m_notes.begin(), m_notes.end(), isPadVersion), m_notes.end());
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
    for (const auto &[key, value] : recording.notes) {
        const bool isNote = !looksLikeEvent(key, version) && (version < 2 || key != kPadVersionKey);
        out << (isNote ? "" : "# ") << key << ": " << value << '\n';
    }
    for (const Event &event : recording.events)
        out << eventLine(event) << '\n';
}

} // namespace kvsim
