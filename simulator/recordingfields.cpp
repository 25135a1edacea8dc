#include "recordingfields.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace kvsim {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr double kLongestMs = 1e9; // eleven days

} // namespace

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string quoted(std::string_view text)
{
    constexpr std::size_t kShown = 40;
    return "'" + std::string(text.substr(0, kShown)) + (text.size() > kShown ? "...'" : "'");
}

Fields split(std::string_view line)
{
    Fields fields;
    while (!line.empty() && fields.count < fields.at.size()) {
        const auto length = std::min(line.find_first_of(kBlanks), line.size());
        fields.at[fields.count++] = line.substr(0, length);
        line = trimmed(line.substr(length));
    }
    return fields;
}

std::string_view afterFields(std::string_view line, std::size_t count)
{
    for (; count > 0; --count)
        line = trimmed(line.substr(std::min(line.find_first_of(kBlanks), line.size())));
    return line;
}

bool startsNumber(std::string_view field)
{
    return field.find_first_of("+-.0123456789") == 0;
}

std::string parseInt(std::string_view field, const char *what, int &value)
{
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error == std::errc::result_out_of_range)
        return std::string(what) + " " + quoted(field) + " is out of range";
    if (error != std::errc() || end != field.data() + field.size())
        return std::string(what) + " " + quoted(field) + " is not a whole number";
    return {};
}

std::string parseCount(std::string_view field, const char *what, int least, int &value)
{
    constexpr int kMost = 1000000;
    const std::string reason = parseInt(field, what, value);
    if (!reason.empty() || (value >= least && value <= kMost))
        return reason;
    return std::string(what) + " " + quoted(field) + " is out of range";
}

std::string parseTime(std::string_view field, std::int64_t &timeUs)
{
    double ms = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), ms, std::chars_format::fixed);
    if (error == std::errc::invalid_argument || end != field.data() + field.size())
        return "time " + quoted(field) + " is not a number of milliseconds";
    if (error != std::errc() || !(ms >= 0 && ms <= kLongestMs))
        return "time " + quoted(field) + " is out of range";
    timeUs = std::llround(ms * 1000);
    return {};
}

/// Not with a stream: it would use the locale's decimal sign.
std::string timeText(std::int64_t timeUs)
{
    std::string text = std::to_string(timeUs / 1000);
    if (const auto rest = timeUs % 1000; rest != 0) {
        text += "." + std::to_string(1000 + rest).substr(1);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

} // namespace kvsim
