/// @file
/// Recordings read from texts and written to texts, as the tests give and expect them.
#ifndef RECORDINGTEXT_H
#define RECORDINGTEXT_H

#include "recording.h"

#include <sstream>
#include <string>

inline constexpr const char *kHeader = "version: 1\nmodel: S300\n";
inline constexpr const char *kHeader2 = "version: 2\nmodel: S300\n";

inline kvsim::Recording read(const std::string &text)
{
    std::istringstream in(text);
    return kvsim::readRecording(in, "pen.kvrec");
}

inline std::string write(const kvsim::Recording &recording)
{
    std::ostringstream out;
    kvsim::writeRecording(out, recording);
    return out.str();
}

#endif
