/// @file
/// Pen recordings as text: reading, writing and the reasons for refusing one. FORMAT.md is the grammar.
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

// More is not read, so that what a file or a window sends takes no more memory than a recording needs.
inline constexpr std::size_t kLongestLine = 65536; ///< bytes, without its end
inline constexpr std::size_t kMostHeaderLines = 1000;

struct Recording
{
    std::string model;
    std::vector<std::pair<std::string, std::string>> notes; ///< header lines that only people read
    std::vector<Event> events;
    std::string padVersion{}; ///< what GetDevicePartsVersion of the recorded pad wrote; empty: not known
};

/// what() is "file:line: reason".
class RecordingError : public std::runtime_error
{
public:
    RecordingError(const std::string &file, int line, const std::string &reason);
};

/// Reads a recording event by event, so that its length does not matter. What it holds is one line, and the header.
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
    bool m_lineWaits = false; ///< the header's reader met the first event
    int m_version = 0; ///< 0: the header did not say so far
    bool m_hadPacket = false;
    std::int64_t m_lastTimeUs = 0;
    std::string m_model;
    std::string m_padVersion;
    std::vector<std::pair<std::string, std::string>> m_notes;
    std::vector<int> m_noteLines; ///< their line numbers
};

Recording readRecording(std::istream &in, const std::string &name);

/// Says the oldest version that the recording can be read with. A note that this version would take for something else
/// is written as a comment.
void writeRecording(std::ostream &out, const Recording &recording);

} // namespace kvsim

#endif
