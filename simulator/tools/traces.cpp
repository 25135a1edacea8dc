#include "traces.h"

#include "recording.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <istream>
#include <string_view>

namespace kvsim {

namespace {

constexpr std::string_view kBlanks = " \t\r";

/// False unless the line holds exactly five finite numbers.
bool readNumbers(std::string_view line, std::array<double, 5> &numbers)
{
    const char *at = line.data(), *const end = at + line.size();
    const auto skipBlanks = [&] {
        at = std::find_if(at, end, [](char c) { return kBlanks.find(c) == std::string_view::npos; });
    };
    for (double &number : numbers) {
        skipBlanks();
        const auto [next, error] = std::from_chars(at, end, number);
        if (error != std::errc() || !std::isfinite(number))
            return false;
        at = next;
    }
    skipBlanks();
    return at == end;
}

/// Takes over "# key: value" lines, but not those whose keys mean something in a recording's header.
void readAbout(std::string_view line, Trace &trace)
{
    const auto first = std::min(line.find_first_not_of("# \t"), line.size());
    line = line.substr(first, line.find_last_not_of(kBlanks) + 1 - first);
    const auto colon = line.find(':');
    if (colon == std::string_view::npos)
        return;
    const std::string_view key = line.substr(0, colon);
    if (!key.empty() && std::isalpha(static_cast<unsigned char>(key.front())) && key.find(' ') == std::string_view::npos
        && key != "version" && key != "model" && key != "columns")
        trace.about.emplace_back(key, line.substr(std::min(line.find_first_not_of(' ', colon + 1), line.size())));
}

Sample::State stateOf(double pen)
{
    return pen == 0 ? Sample::Down : pen == 1 ? Sample::Move : Sample::Up;
}

} // namespace

Trace readTrace(std::istream &in, const std::string &name)
{
    Trace trace;
    int lineNumber = 0;
    double largest = 0;
    const auto refuse = [&](const char *reason) { throw RecordingError(name, std::max(lineNumber, 1), reason); };
    for (std::string line; std::getline(in, line);) {
        ++lineNumber;
        if (!line.empty() && line.front() == '#') {
            readAbout(line, trace);
            continue;
        }
        if (line.find_first_not_of(kBlanks) == std::string::npos)
            continue;
        std::array<double, 5> n{};
        if (!readNumbers(line, n))
            refuse("a sample is: milliseconds x y pressure pen");
        if (n[4] != 0 && n[4] != 1 && n[4] != 2)
            refuse("the pen is 0 (down), 1 (moves) or 2 (up)");
        if (n[3] < 0)
            refuse("the pressure is negative");
        if (!trace.samples.empty() && n[0] < trace.samples.back().timeMs)
            refuse("the time goes backwards");
        largest = std::max(largest, n[3]);
        trace.samples.push_back({n[0], n[1], n[2], n[3], stateOf(n[4])});
    }
    if (trace.samples.empty())
        refuse("no samples");
    for (Sample &sample : trace.samples)
        sample.pressure = largest > 0 ? sample.pressure / largest : 0;
    return trace;
}

} // namespace kvsim
