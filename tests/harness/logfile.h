/// @file
/// The diagnostics log: switching it on for a scope, and reading what was appended to a file since.
#ifndef LOGFILE_H
#define LOGFILE_H

#include "kvsignpadsdk_global.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <ostream>
#include <string>
#include <vector>

inline constexpr char kLogFile[] = "/tmp/kvsignpadsdk.log";
inline constexpr char kInThreadLogFile[] = "/tmp/kvsignpadsdk_inthread.log";

/// Switches the log on until the end of the scope.
class LogOn
{
public:
    LogOn() { set(true); }
    ~LogOn() { set(false); }
    LogOn(const LogOn &) = delete;
    LogOn &operator=(const LogOn &) = delete;

    /// Atomic, because threads of the library read the switch.
    static void set(bool on) { __atomic_store_n(&g_bEnableLog, on, __ATOMIC_RELAXED); }
};

/// The parts of a line "[key]:<tick>-text, ". A line of another form has an empty key and is its own text.
struct LogEntry
{
    std::string key;
    std::string text;
    unsigned long long tick = 0;

    friend bool operator==(const LogEntry &a, const LogEntry &b) { return a.key == b.key && a.text == b.text; }
    friend std::ostream &operator<<(std::ostream &out, const LogEntry &entry)
    {
        return out << '[' << entry.key << "]:" << entry.text;
    }
};

inline LogEntry parsedLogLine(const std::string &line)
{
    const std::string between = "]:<";
    const std::string end = ", ";
    const size_t keyEnd = line.find(between);
    if (line.empty() || line.front() != '[' || keyEnd == std::string::npos || line.size() < end.size()
        || line.compare(line.size() - end.size(), end.size(), end) != 0)
        return {"", line};
    const size_t tickBegin = keyEnd + between.size();
    const size_t tickEnd = line.find(">-", tickBegin);
    const std::string tick = tickEnd == std::string::npos ? "" : line.substr(tickBegin, tickEnd - tickBegin);
    if (tick.empty() || !std::all_of(tick.begin(), tick.end(), [](unsigned char c) { return std::isdigit(c) != 0; }))
        return {"", line};
    const size_t textBegin = tickEnd + 2;
    return {
        line.substr(1, keyEnd - 1), line.substr(textBegin, line.size() - end.size() - textBegin), std::stoull(tick)};
}

/// What was appended to a log file since the object was made.
class LogTail
{
public:
    explicit LogTail(const char *fileName = kLogFile)
        : m_fileName(fileName)
        , m_begin(size())
    {
    }

    /// The lines without their line feeds.
    std::vector<std::string> lines() const
    {
        std::ifstream file(m_fileName, std::ios::binary);
        file.seekg(m_begin);
        std::vector<std::string> found;
        for (std::string line; std::getline(file, line);)
            found.push_back(line);
        return found;
    }

    std::vector<LogEntry> entries() const
    {
        std::vector<LogEntry> found;
        for (const std::string &line : lines())
            found.push_back(parsedLogLine(line));
        return found;
    }

private:
    std::streamoff size() const
    {
        std::ifstream file(m_fileName, std::ios::binary | std::ios::ate);
        return file ? static_cast<std::streamoff>(file.tellg()) : 0;
    }

    std::string m_fileName;
    std::streamoff m_begin;
};

#endif
