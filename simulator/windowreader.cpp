#include "windowreader.h"

#include "script.h"

#include <stdexcept>
#include <utility>

namespace kvsim {

WindowReader::WindowReader(std::istream &in)
    : m_reader(in, "virtual pad")
{
    if (!next(m_opening) || !changesAnswers(m_opening.front()))
        throw std::runtime_error("the virtual pad does not answer");
}

bool WindowReader::next(std::vector<Event> &events)
{
    for (Event event; m_reader.next(event);) {
        if (!changesAnswers(event)) {
            events.clear();
            events.push_back(std::move(event));
            return true;
        }
        if (m_state.size() == kLargestState)
            throw std::runtime_error("the virtual pad's state does not end");
        const bool isLast = event.kind == Event::Kind::Answer && event.operation == "Initial";
        m_state.push_back(std::move(event));
        if (isLast) {
            events = std::exchange(m_state, {});
            return true;
        }
    }
    return false;
}

} // namespace kvsim
