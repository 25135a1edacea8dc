#include "sessionfile.h"

#include "greyimage.h"
#include "recordingfields.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace kvrec {

using kvsim::Event;

namespace {

constexpr std::string_view kSuffix = ".kvrec";

int createFile(const std::string &path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

/// Writes everything, or returns false.
bool writeAll(int descriptor, const char *bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = write(descriptor, bytes, size);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

/// Replaces control characters: what a pad writes must not start a new line of the recording.
std::string onOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, '?');
    return text;
}

} // namespace

SessionFile::SessionFile(const std::string &path, const ModelRow &pad, bool scramble)
    : m_pad(pad)
{
    const auto slash = path.rfind('/');
    m_directory = slash == std::string::npos ? "" : path.substr(0, slash + 1);
    m_name = path.substr(m_directory.size());
    if (m_name.size() > kSuffix.size() && m_name.substr(m_name.size() - kSuffix.size()) == kSuffix)
        m_name.resize(m_name.size() - kSuffix.size());
    const std::string first = m_name;
    for (int number = 1; m_descriptor < 0; ++number) {
        m_name = number == 1 ? first : first + "-" + std::to_string(number);
        m_path = m_directory + m_name + std::string(kSuffix);
        m_descriptor = createFile(m_path);
        if (m_descriptor < 0 && errno != EEXIST)
            throw std::runtime_error(m_path + ": " + std::strerror(errno));
    }
    if (scramble)
        m_scrambler.emplace(pad);
}

SessionFile::~SessionFile()
{
    if (m_descriptor < 0)
        return;
    writeHeader();
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void SessionFile::beginTime()
{
    const std::lock_guard lock(m_mutex);
    writeHeader();
    if (!m_begin)
        m_begin = Clock::now();
}

/// Call it with the mutex held, so that times never go backwards in the file.
std::int64_t SessionFile::now()
{
    if (m_begin)
        m_lastUs = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - *m_begin).count();
    return m_lastUs;
}

void SessionFile::write(const char *bytes, std::size_t size)
{
    if (m_descriptor < 0 || writeAll(m_descriptor, bytes, size))
        return;
    std::fprintf(stderr, "kvsignpaddrv: %s: %s; the rest is not recorded\n", m_path.c_str(), std::strerror(errno));
    close(m_descriptor);
    m_descriptor = -1;
}

void SessionFile::writeLine(const std::string &line)
{
    const std::string bytes = line + "\n";
    write(bytes.data(), bytes.size());
}

void SessionFile::writeHeader()
{
    if (m_headerWritten)
        return;
    m_headerWritten = true;
    std::string header = "version: 2\nmodel: " + std::string(m_pad.name);
    if (!m_version.empty())
        header += "\npad-version: " + m_version;
    writeLine(header + (m_scrambler ? "\nscrambled: the places of the packets and the fingerprints" : ""));
}

void SessionFile::writeEvent(Event event)
{
    writeHeader();
    event.timeUs = now();
    writeLine(eventLine(event));
}

/// Runs on the pad's reading thread for every packet: a single write and no allocation.
void SessionFile::packet(const kvsim::Packet &packet)
{
    const std::lock_guard lock(m_mutex);
    writeHeader();
    const kvsim::Packet written = m_scrambler ? m_scrambler->next(packet) : packet;
    std::array<char, 80> line; // five numbers of at most 20 characters
    const std::int64_t us = now();
    char *end = std::to_chars(line.data(), line.data() + line.size(), us / 1000).ptr;
    const std::int64_t thousandths = us % 1000;
    for (const char c : {'.', static_cast<char>('0' + thousandths / 100),
             static_cast<char>('0' + thousandths / 10 % 10), static_cast<char>('0' + thousandths % 10)})
        *end++ = c;
    for (const int value : {written.x, written.y, written.pressure, written.status}) {
        *end++ = ' ';
        end = std::to_chars(end, line.data() + line.size(), value).ptr;
    }
    *end++ = '\n';
    write(line.data(), static_cast<std::size_t>(end - line.data()));
}

void SessionFile::fingerprint(const unsigned char *data, int length, int score)
{
    const std::lock_guard lock(m_mutex);
    Event event;
    event.kind = Event::Kind::Fingerprint;
    event.file = data ? storeImage(data, length) : "-";
    event.score = score;
    if (!event.file.empty())
        writeEvent(std::move(event));
}

/// Stores a picture and returns the name of its file, which has no blanks; empty when it could not be stored. A picture
/// that the sensor sends again keeps its file.
std::string SessionFile::storeImage(const unsigned char *data, int length)
{
    constexpr std::size_t kSize = std::size_t{kFingerprintWidth} * kFingerprintHeight;
    if (length < 0 || static_cast<std::size_t>(length) != kSize) {
        writeLine("# a fingerprint of " + std::to_string(length) + " bytes");
        return {};
    }
    kvsim::GreyImage image{kFingerprintWidth, kFingerprintHeight,
        m_scrambler ? kvsim::scrambledFingerprint() : std::vector<unsigned char>(data, data + kSize)};
    if (image.pixels == m_lastImage)
        return m_lastImageName;
    std::string name = m_name + "-finger-" + std::to_string(++m_images) + ".pgm";
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == ' ' || c == '\t'; }, '_');
    std::ostringstream bytes;
    writePgm(bytes, image);
    const int descriptor = createFile(m_directory + name);
    const bool stored = descriptor >= 0 && writeAll(descriptor, bytes.str().data(), bytes.str().size());
    if (!stored)
        std::fprintf(stderr, "kvsignpaddrv: %s%s: %s\n", m_directory.c_str(), name.c_str(), std::strerror(errno));
    if (descriptor >= 0)
        close(descriptor);
    m_lastImage = stored ? std::move(image.pixels) : std::vector<unsigned char>();
    m_lastImageName = stored ? std::move(name) : std::string();
    return m_lastImageName;
}

void SessionFile::noteCall(const char *operation, const std::string &arguments, int result)
{
    if (m_headerWritten)
        writeLine("# " + kvsim::timeText(now()) + " " + operation + arguments + " -> " + std::to_string(result));
}

void SessionFile::callBrokenOff(const char *operation, const std::string &arguments, int result)
{
    const std::lock_guard lock(m_mutex);
    noteCall(operation, arguments, result);
}

void SessionFile::call(const char *operation, const std::string &arguments, int result)
{
    const std::lock_guard lock(m_mutex);
    noteCall(operation, arguments, result);
    if (const auto last = m_results.emplace(operation, 0).first; last->second != result) {
        last->second = result;
        Event event;
        event.kind = Event::Kind::Answer;
        event.operation = operation;
        event.value = result;
        writeEvent(std::move(event));
    }
}

void SessionFile::text(const char *query, const std::string &text)
{
    const std::lock_guard lock(m_mutex);
    const bool isVersion = std::string_view(query) == "GetDevicePartsVersion";
    if (m_scrambler && !isVersion)
        return; // an identifier could lead to the signer
    const std::string line = std::string(kvsim::trimmed(onOneLine(text)));
    if (const auto last = m_texts.find(query); last != m_texts.end() && last->second == line)
        return;
    m_texts[query] = line;
    if (isVersion && !m_headerWritten) {
        m_version = line;
        return;
    }
    Event event;
    event.kind = Event::Kind::Text;
    event.operation = query;
    event.text = line;
    writeEvent(std::move(event));
}

} // namespace kvrec
