/// @file
/// The pieces of a recording's lines: blanks, fields, numbers and times.
#ifndef RECORDINGFIELDS_H
#define RECORDINGFIELDS_H

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvsim {

/// The text without leading and trailing blanks, tabs and carriage returns.
std::string_view trimmed(std::string_view text);

/// The text in quotes for a message; long texts are cut.
std::string quoted(std::string_view text);

/// The fields of an event line: one more than the longest event has, so that surplus fields are noticed.
struct Fields
{
    std::array<std::string_view, 7> at{};
    std::size_t count = 0;
};

Fields split(std::string_view line);

/// The line after its first `count` fields.
std::string_view afterFields(std::string_view line, std::size_t count);

bool startsNumber(std::string_view field);

// Both return an empty text when the field could be read, else the reason why not.
std::string parseInt(std::string_view field, const char *what, int &value);
std::string parseCount(std::string_view field, const char *what, int least, int &value);
std::string parseTime(std::string_view field, std::int64_t &timeUs);

/// Milliseconds with as many decimals as they need, whatever the locale.
std::string timeText(std::int64_t timeUs);

} // namespace kvsim

#endif
