/// @file
/// The recording of one session. Every line is in the file as soon as it is written, so a crash loses nothing.
#ifndef SESSIONFILE_H
#define SESSIONFILE_H

#include "modelrows.h"
#include "recordingevents.h"
#include "scramble.h"

#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace kvrec {

/// Every function may be called from any thread. When writing fails, that is said on stderr once and the rest of the
/// session is not recorded; the pad is not disturbed.
class SessionFile
{
public:
    /// Makes the file, readable by its owner alone. A file that is there already is left as it is: the next free name
    /// is taken (pen.kvrec, pen-2.kvrec, pen-3.kvrec). Throws std::runtime_error.
    SessionFile(const std::string &path, const ModelRow &pad, bool scramble);
    ~SessionFile();
    SessionFile(const SessionFile &) = delete;
    SessionFile &operator=(const SessionFile &) = delete;

    /// Starts the clock: everything before has the time 0.
    void beginTime();

    void packet(const kvsim::Packet &packet);
    void fingerprint(const unsigned char *data, int length, int score);

    /// Notes a call with its arguments as a comment, and an event when its result differs from the last one.
    void call(const char *operation, const std::string &arguments, int result);

    /// The same for a call that its caller broke off: its result says nothing about the pad, so there is no event.
    void callBrokenOff(const char *operation, const std::string &arguments, int result);

    /// Notes what a text query wrote. The version text goes into the header if that is not written yet.
    void text(const char *query, const std::string &text);

private:
    using Clock = std::chrono::steady_clock;

    std::int64_t now();
    void write(const char *bytes, std::size_t size);
    void writeLine(const std::string &line);
    void writeHeader();
    void writeEvent(kvsim::Event event);
    void noteCall(const char *operation, const std::string &arguments, int result);
    std::string storeImage(const unsigned char *data, int length);

    const ModelRow &m_pad;
    std::mutex m_mutex;
    std::string m_path;
    std::string m_directory; ///< with a closing slash, or empty
    std::string m_name; ///< without the suffix
    int m_descriptor = -1;
    bool m_headerWritten = false;
    std::string m_version;
    std::optional<kvsim::Scrambler> m_scrambler;
    std::optional<Clock::time_point> m_begin;
    std::int64_t m_lastUs = 0;
    std::map<std::string, int> m_results;
    std::map<std::string, std::string> m_texts;
    int m_images = 0;
    std::vector<unsigned char> m_lastImage;
    std::string m_lastImageName;
};

} // namespace kvrec

#endif
