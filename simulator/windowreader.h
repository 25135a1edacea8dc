/// @file
/// What a virtual pad's window says, read from any stream of bytes.
#ifndef WINDOWREADER_H
#define WINDOWREADER_H

#include "recording.h"

#include <istream>
#include <string>
#include <vector>

namespace kvsim {

/// The window sends a recording that never ends. What it is told to do wrong comes as a state: the events that change
/// how the pad answers, and `answer TIME Initial RESULT` as the last of them. The first state is the greeting. A state
/// is handed on as a whole, so that no command meets half of it.
class WindowReader
{
public:
    static constexpr std::size_t kLargestState = 1000; ///< events; more are no state

    /// Reads the header and the first state. Throws std::runtime_error when they are malformed or do not come.
    explicit WindowReader(std::istream &in);

    const std::string &model() const { return m_reader.model(); }

    /// The first state.
    const std::vector<Event> &opening() const { return m_opening; }

    /// The window's answer to Initial.
    int answer() const { return m_opening.back().value; }

    /// What comes next: one thing that the pad sends, or a state. False at the end. Throws std::runtime_error for what
    /// is malformed.
    bool next(std::vector<Event> &events);

private:
    RecordingReader m_reader;
    std::vector<Event> m_opening;
    std::vector<Event> m_state; ///< begun, but not at its end
};

} // namespace kvsim

#endif
