/// @file
/// The diagnostics log in a test: switched on for a while, and what was appended meanwhile.
#ifndef LOGFILE_H
#define LOGFILE_H

#include "kvsignpadsdk_global.h"

#include <cctype>
#include <fstream>
#include <string>
#include <vector>

/// Switches the log on while it lives.
class LogOn
{
public:
    LogOn() { set(true); }
    ~LogOn() { set(false); }
    LogOn(const LogOn &) = delete;
    LogOn &operator=(const LogOn &) = delete;

private:
    // As a whole: a thread of the library may be reading the switch.
    static void set(bool on) { __atomic_store_n(&g_bEnableLog, on, __ATOMIC_RELAXED); }
};

/// What is appended to a log file from this object's construction on.
class LogTail
{
public:
    explicit LogTail(const char *fileName = "/tmp/kvsignpadsdk.log")
        : m_fileName(fileName)
    {
        std::ifstream file(m_fileName, std::ios::binary | std::ios::ate);
        if (file)
            m_start = file.tellg();
    }

    /// The lines without their line feeds, as they are.
    std::vector<std::string> lines() const
    {
        std::ifstream file(m_fileName, std::ios::binary);
        file.seekg(m_start);
        std::vector<std::string> result;
        for (std::string line; std::getline(file, line);)
            result.push_back(line);
        return result;
    }

    /// The lines with "<%ld>" in place of the tick, and without the comma and blank that end each.
    std::vector<std::string> messages() const
    {
        std::vector<std::string> result = lines();
        for (std::string &line : result) {
            hideTick(line);
            if (line.size() >= 2 && line.compare(line.size() - 2, 2, ", ") == 0)
                line.resize(line.size() - 2);
        }
        return result;
    }

    /// The messages written under one key, without the key.
    std::vector<std::string> messagesOf(const std::string &key) const
    {
        const std::string head = "[" + key + "]:";
        std::vector<std::string> result;
        for (const std::string &line : messages()) {
            if (line.compare(0, head.size(), head) == 0)
                result.push_back(line.substr(head.size()));
        }
        return result;
    }

private:
    static void hideTick(std::string &line)
    {
        const size_t open = line.find("]:<");
        if (open == std::string::npos)
            return;
        size_t end = open + 3;
        while (end < line.size() && std::isdigit(static_cast<unsigned char>(line[end])))
            ++end;
        if (end > open + 3 && end < line.size() && line[end] == '>')
            line.replace(open + 3, end - open - 3, "%ld");
    }

    std::string m_fileName;
    std::streamoff m_start = 0;
};

#endif
