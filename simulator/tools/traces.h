/// @file
/// Pen traces of other sources as text: lines of "milliseconds x y pressure pen", # begins a line about the source.
#ifndef TRACES_H
#define TRACES_H

#include "handwriting.h"

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace kvsim {

struct Trace
{
    std::vector<std::pair<std::string, std::string>> about; ///< "# key: value" lines: source, licence and the like
    std::vector<Sample> samples; ///< the trace's own units; pressure as a share of the trace's largest
};

/// Throws RecordingError: a line that is not five numbers, a pen state other than 0, 1, 2, a time that goes backwards,
/// or no samples at all.
Trace readTrace(std::istream &in, const std::string &name);

} // namespace kvsim

#endif
