#include "faults.h"

namespace kvsim {

void Faults::take(const Event &event)
{
    switch (event.kind) {
    case Event::Kind::Answer:
        results[event.operation] = event.value;
        break;
    case Event::Kind::Text:
        texts[event.operation] = event.text;
        break;
    case Event::Kind::Screen:
        screenMs = event.value;
        break;
    case Event::Kind::Unplug:
        gone = true;
        break;
    case Event::Kind::Plug:
        gone = false;
        break;
    default:
        break;
    }
}

} // namespace kvsim
