/// @file
/// Drawing into a file: the painter asks for memory until its very end.
#ifndef PAINTING_H
#define PAINTING_H

#include <QPainter>

#include <cxxabi.h>
#include <memory>

namespace painting {

/// Draws on a QPdfWriter or QSvgGenerator and ends the painter. Returns whether it ended well.
///
/// When memory runs out, ~QPainter would end the drawing once more, run out once more inside a destructor, and so end
/// the process. So after any exception painter and device are given up, which leaks them.
/// @throws std::bad_alloc
template <class Device, class Draw>
bool drawOn(std::unique_ptr<Device> device, Draw draw)
{
    std::unique_ptr<QPainter> painter;
    try {
        painter = std::make_unique<QPainter>(device.get());
        draw(*painter);
        return painter->end();
    } catch (const abi::__forced_unwind &) { // there is memory: the painter can end in the ordinary way
        throw;
    } catch (...) {
        static_cast<void>(painter.release());
        static_cast<void>(device.release());
        throw;
    }
}

} // namespace painting

#endif
