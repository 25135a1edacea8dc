/// @file
/// Reads what the window of a virtual pad sends, from any stream of bytes.
#ifndef WINDOWREADER_H
#define WINDOWREADER_H

#include "recording.h"

#include <istream>
#include <string>
#include <vector>

namespace kvsim {

/// The window sends a recording without an end. When its user changes how the pad misbehaves, it sends a state: all
/// events that change how the pad answers, closed by `answer TIME Initial RESULT`. The connection begins with a state
/// too. next() returns a state as a whole, so that no driver call sees half of one.
class WindowReader
{
public:
    static constexpr std::size_t kLargestState = 1000; ///< events; a longer state is refused

    /// Reads the header and the first state. Throws std::runtime_error when they are malformed or missing.
    explicit WindowReader(std::istream &in);

    const std::string &model() const { return m_reader.model(); }

    /// The first state.
    const std::vector<Event> &opening() const { return m_opening; }

    /// What Initial is to answer.
    int answer() const { return m_opening.back().value; }

    /// The next event that the pad sends, or the next state. Returns false at the end. Throws std::runtime_error for
    /// malformed lines.
    bool next(std::vector<Event> &events);

private:
    RecordingReader m_reader;
    std::vector<Event> m_opening;
    std::vector<Event> m_state; ///< the part of a state that has been read so far
};

} // namespace kvsim

#endif
