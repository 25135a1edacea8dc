#include "memoryendings.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace memoryendings {

namespace {

// Qt's Gui, Widgets and Svg are compiled without exceptions: one that passes them leaves locks held and objects half
// made. Where they ask malloc itself they use what they got unseen, as libpng, fontconfig and others do.
struct Known
{
    const char *call; ///< how the name of the library's begins
    const char *function;
};

constexpr Known kKnown[] = {
    {"AboutBox", "QEventDispatcherGlib::processEvents"}, // the lock of the queue of window events
    {"AboutBox", "QMessageBox::about"}, // fonts, rich text, layout, painting
    {"Base64Decode", "QImageReader::size"}, // the lock of the list of formats
    {"Base64Decode JPEG", "a jump to nowhere"}, // its reader makes a decoder before it says where errors go
    {"Base64Decode JPEG", ""}, // the same, when the jump leaves a stack that cannot be read
    {"Base64Encode", "QImage::save"}, // the lock of the list of formats
    {"GetFPImageBase64Data", "QImage::save"}, // the same
    {"GetSVGImageBase64Data", "QObject::~QObject"}, // of the generator's text stream, with half its connections
    {"GetSVGImageBase64Data", "QPaintEngine::drawLines"}, // the generator's path for a line
    {"GetSVGImageBase64Data", "QPainter::end"}, // its text stream
    {"InitialDevice", "QObjectPrivate::~QObjectPrivate"}, // of a half made thread
    {"InitialDevice", "QWidgetPrivate::setVisible"}, // a list of connections that could not grow
    {"SaveDrawingImage", "QImageWriter::write"}, // the lock of the list of formats
    {"SaveDrawingImage PDF", "QPainter::begin"}, // the first page
    {"SaveDrawingImage PDF", "QPainter::drawImage"},
    {"SaveDrawingImage PDF", "QPainter::end"},
    {"SaveDrawingImage PDF", "QPdfEnginePrivate::~QPdfEnginePrivate"}, // a page that was never made
    {"SaveDrawingImage SVG", "QObject::~QObject"}, // as of the text
    {"SaveDrawingImage SVG", "QPaintEngine::drawLines"},
    {"SaveDrawingImage SVG", "QPainter::end"},
    {"WPSBase64Encode", "QImage::save"},
};

} // namespace

bool isOfQt(const std::string &call, const ChildReport &report)
{
    const bool isKnown = std::any_of(std::begin(kKnown), std::end(kKnown), [&](const Known &known) {
        return call.rfind(known.call, 0) == 0 && report.stack.entry == std::string(known.function);
    });
    return isKnown && std::string(report.stack.module).find("kvsignpadsdk") == std::string::npos;
}

// QWidget's constructor ends in a jump to this function. The window keeps a child whose constructor ended with an
// exception, and whose memory is free again: the next painting may break the heap, and the process end anywhere.
bool isHalfMade(const CrashStack &failed)
{
    return std::strstr(failed.entry, "QWidgetPrivate4init") != nullptr;
}

std::string inWords(const ChildReport &report)
{
    const char *how = report.isTerminated ? "terminated" : report.isHung ? "hung" : "crashed";
    return std::string(how) + " in " + report.stack.entry;
}

} // namespace memoryendings
