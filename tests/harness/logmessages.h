/// @file
/// The log's lines as the sources spell them: "<%ld>-" in place of the tick, without the comma that ends each line.
#ifndef LOGMESSAGES_H
#define LOGMESSAGES_H

#include "logfile.h"

#include <string>
#include <vector>

using Lines = std::vector<std::string>;

inline std::string withoutTick(std::string line)
{
    const size_t open = line.find("]:<");
    if (open == std::string::npos)
        return line;
    const size_t end = line.find_first_not_of("0123456789", open + 3);
    if (end != std::string::npos && end > open + 3 && line[end] == '>')
        line.replace(open + 3, end - open - 3, "%ld");
    return line;
}

/// "[CS300SignObj::Shutdown()]:<%ld>-leave !", in order.
inline Lines messages(const LogTail &log)
{
    Lines found;
    for (const std::string &line : log.lines()) {
        const bool ended = line.size() >= 2 && line.compare(line.size() - 2, 2, ", ") == 0;
        found.push_back(ended ? withoutTick(line.substr(0, line.size() - 2)) : line);
    }
    return found;
}

/// What was written under one key, without the key.
inline Lines messagesOf(const LogTail &log, const std::string &key)
{
    const std::string head = "[" + key + "]:";
    Lines found;
    for (const std::string &message : messages(log)) {
        if (message.compare(0, head.size(), head) == 0)
            found.push_back(message.substr(head.size()));
    }
    return found;
}

#endif
