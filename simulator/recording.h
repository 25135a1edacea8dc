/// @file
/// Pen recordings as text: reading them, writing them, and why one is refused. FORMAT.md is the grammar.
#ifndef RECORDING_H
#define RECORDING_H

#include "recordingevents.h"

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvsim {

/// The newest version that is read and written.
inline constexpr int kRecordingVersion = 2;

// Limits, so that a hostile file or window cannot make the reader take memory without end.
inline constexpr std::size_t kLongestLine = 65536; ///< bytes, without its end
inline constexpr std::size_t kMostHeaderLines = 1000;

struct Recording
{
    std::string model;
    std::vector<std::pair<std::string, std::string>> notes; ///< header lines meant for people
    std::vector<Event> events;
    std::string padVersion{}; ///< the recorded pad's text of GetDevicePartsVersion; empty: not known
};

/// what() is "file:line: reason".
class RecordingError : public std::runtime_error
{
public:
    RecordingError(const std::string &file, int line, const std::string &reason);
};

/// Reads a recording event by event. It keeps the header and one line in memory, so recordings may be of any length.
class RecordingReader
{
public:
    /// Reads the header. The name is only used in messages.
    RecordingReader(std::istream &in, std::string name);

    const std::string &model() const { return m_model; }
    const std::vector<std::pair<std::string, std::string>> &notes() const { return m_notes; }

    const std::string &padVersion() const { return m_padVersion; }

    /// False at the end.
    bool next(Event &event);

private:
    bool readLine();
    void readHeader();
    void takeHeaderLine(std::string_view line);
    void takeVersion(std::string_view value);
    void takePadVersion();
    void checkNotes();
    [[noreturn]] void refuse(const std::string &reason) const { refuseLine(m_lineNumber, reason); }
    [[noreturn]] void refuseLine(int line, const std::string &reason) const;

    std::istream &m_in;
    std::string m_name;
    std::vector<char> m_bytes; ///< a line as it is read
    std::string m_line; ///< the line in hand, without comment lines, blanks around it and line end
    int m_lineNumber = 0;
    bool m_lineWaits = false; ///< the line in hand is the first event, met while reading the header
    int m_version = 0; ///< 0 until its header line is read
    bool m_hadPacket = false;
    std::int64_t m_lastTimeUs = 0;
    std::string m_model;
    std::string m_padVersion;
    std::vector<std::pair<std::string, std::string>> m_notes;
    std::vector<int> m_noteLines; ///< their line numbers
};

Recording readRecording(std::istream &in, const std::string &name);

/// The version line names the oldest version with all events of the recording. A note that this version would take for
/// something else is written as a comment.
void writeRecording(std::ostream &out, const Recording &recording);

} // namespace kvsim

#endif
