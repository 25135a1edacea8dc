/// @file
/// What signpad.hpp needs inside: errors, the receivers that the library calls, files and the working directory.
#ifndef KVSIGNPADSDK_SIGNPADDETAIL_HPP
#define KVSIGNPADSDK_SIGNPADDETAIL_HPP

#include "kvsignpadsdk_global.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <cxxabi.h>
#include <deque>
#include <exception>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace kv {

/// A tap on the pad's buttons.
enum class Tap
{
    Cancel = 0,
    Confirm = 1
};

/// What can go wrong.
enum class Errc
{
    DriverNotFound = 1,
    PadNotFound,
    PadLost,
    AlreadyOpen,
    PadClosed,
    NotSupported,
    NoInk,
    NotSaved,
    CommandFailed,
    VersionMismatch
};

/// Says what to do about it.
class ErrorCategory : public std::error_category
{
public:
    const char *name() const noexcept override { return "signpad"; }
    std::string message(int code) const override
    {
        switch (static_cast<Errc>(code)) {
        case Errc::DriverNotFound:
            return "no libkvsignpaddrv.so: name the folder of the pad's driver";
        case Errc::PadNotFound:
            return "no pad answers: is it plugged in, is it this model, may this user reach it, does another "
                   "program use it? (`kvsign doctor` finds out)";
        case Errc::PadLost:
            return "the pad no longer answers: plug it in and open it again";
        case Errc::AlreadyOpen:
            return "another pad is open in this process: close it first";
        case Errc::PadClosed:
            return "the pad is closed: open a new one";
        case Errc::NotSupported:
            return "this pad has no such thing, or it has no place yet";
        case Errc::NoInk:
            return "nothing has been written on the pad yet: wait for the signer first";
        case Errc::NotSaved:
            return "the picture could not be made or written: is the folder there, may this user write, is the "
                   "disk full?";
        case Errc::CommandFailed:
            return "the pad or its driver refused: is the pad still plugged in?";
        case Errc::VersionMismatch:
            return "the library is older than this header, or of another major version";
        }
        return "unknown";
    }
};

inline const std::error_category &errorCategory()
{
    static const ErrorCategory category;
    return category;
}

inline std::error_code make_error_code(Errc code)
{
    return {static_cast<int>(code), errorCategory()};
}

class PadError : public std::system_error
{
public:
    explicit PadError(Errc code)
        : std::system_error(make_error_code(code))
    {
    }
};

namespace detail {

inline void check(bool sensible, const char *message)
{
    if (!sensible)
        throw std::invalid_argument(message);
}

inline std::vector<unsigned char> fromBase64(const char *text)
{
    static constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    static const std::array<int, 256> values = [] {
        std::array<int, 256> all{};
        all.fill(-1);
        for (int i = 0; i < 64; ++i)
            all[static_cast<unsigned char>(kAlphabet[i])] = i;
        return all;
    }();
    std::vector<unsigned char> bytes;
    unsigned bits = 0;
    int count = 0;
    for (; *text; ++text) {
        const int value = values[static_cast<unsigned char>(*text)];
        if (value < 0)
            continue;
        bits = bits << 6 | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes.push_back(static_cast<unsigned char>(bits >> count));
        }
    }
    return bytes;
}

/// What the library calls on the driver's thread, for the one open pad.
class Receiver
{
public:
    static Receiver &instance()
    {
        static Receiver *const forEver = new Receiver; // never destroyed: a driver's thread may run at the very end
        return *forEver;
    }

    bool open() const { return m_open; }

    /// `close` is called at exit if the pad is still open.
    void begin(int (*close)(int), int type)
    {
        static const int once = std::atexit([] { instance().closeForgotten(); });
        static_cast<void>(once);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_close = close;
        m_type = type;
        m_open = true;
        m_taps.clear();
        m_failure = nullptr;
    }

    void end()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_open = false;
        m_live = nullptr;
    }

    void tap(int key)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_taps.push_back(static_cast<Tap>(key));
        m_changed.notify_all();
    }

    void setLive(std::function<void(const std::vector<unsigned char> &)> receiver)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_live = std::make_shared<decltype(receiver)>(std::move(receiver));
    }

    /// The receiver runs without the lock. What it throws is kept for the thread that waits.
    void live(const char *text)
    {
        std::shared_ptr<std::function<void(const std::vector<unsigned char> &)>> receiver;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            receiver = m_live;
        }
        try {
            if (receiver)
                (*receiver)(fromBase64(text));
        } catch (const abi::__forced_unwind &) {
            throw; // the thread is being cancelled
        } catch (...) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_failure = std::current_exception();
            m_changed.notify_all();
        }
    }

    std::optional<Tap> next(std::chrono::milliseconds time)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, time, [&] { return !m_taps.empty() || m_failure; });
        if (m_failure)
            std::rethrow_exception(std::exchange(m_failure, nullptr));
        if (m_taps.empty())
            return std::nullopt;
        const Tap tap = m_taps.front();
        m_taps.pop_front();
        return tap;
    }

private:
    void closeForgotten()
    {
        if (m_open)
            m_close(m_type);
        m_open = false;
    }

    int (*m_close)(int) = nullptr;
    int m_type = 0;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Tap> m_taps;
    std::shared_ptr<std::function<void(const std::vector<unsigned char> &)>> m_live;
    std::exception_ptr m_failure;
    bool m_open = false;
};

inline void onEvent(int key)
{
    Receiver::instance().tap(key);
}

inline void onLiveImage(char *text)
{
    Receiver::instance().live(text);
}

/// Changes the working directory, from which the library loads the driver, and changes it back.
class WorkingDirectory
{
public:
    explicit WorkingDirectory(const std::filesystem::path &directory)
    {
        if (directory.empty())
            return;
        m_before = ::open(".", kEntered | O_DIRECTORY | O_CLOEXEC);
        if (::chdir(directory.c_str()) != 0) {
            restore();
            throw PadError(Errc::DriverNotFound);
        }
    }
    WorkingDirectory(const WorkingDirectory &) = delete;
    WorkingDirectory &operator=(const WorkingDirectory &) = delete;
    ~WorkingDirectory() { restore(); }

private:
#ifdef O_PATH
    static constexpr int kEntered = O_PATH; // works for a directory that may be entered but not listed
#else
    static constexpr int kEntered = O_RDONLY;
#endif

    void restore() noexcept
    {
        if (m_before < 0)
            return;
        [[maybe_unused]] const int result = ::fchdir(m_before);
        ::close(m_before);
        m_before = -1;
    }

    int m_before = -1;
};

/// The likeliest reason why a pad could not be opened.
inline Errc whyNot(const std::filesystem::path &directory)
{
    std::error_code ignored;
    const bool there = std::filesystem::exists(directory / "libkvsignpaddrv.so", ignored);
    return there ? Errc::PadNotFound : Errc::DriverNotFound;
}

/// A UTF-8 file name with one code point in each wchar_t. std::filesystem would convert by the program's locale, which
/// knows only ASCII until the program sets it.
inline std::wstring wide(const std::string &name)
{
    std::wstring points;
    for (std::size_t i = 0; i < name.size();) {
        const auto first = static_cast<unsigned char>(name[i]);
        const int more = first < 0x80 ? 0
            : first < 0xC2            ? -1
            : first < 0xE0            ? 1
            : first < 0xF0            ? 2
            : first < 0xF5            ? 3
                                      : -1;
        check(more >= 0 && i + static_cast<std::size_t>(more) < name.size() && first != 0, "a file's name is UTF-8");
        unsigned point = more == 0 ? first : first & (0x3FU >> more);
        for (int k = 1; k <= more; ++k) {
            const auto next = static_cast<unsigned char>(name[i + static_cast<std::size_t>(k)]);
            check((next & 0xC0) == 0x80, "a file's name is UTF-8");
            point = point << 6 | (next & 0x3F);
        }
        points.push_back(static_cast<wchar_t>(point));
        i += static_cast<std::size_t>(more) + 1;
    }
    return points;
}

/// IMAGE_TYPE_ID by the name's ending.
inline int typeOf(const std::filesystem::path &file)
{
    static constexpr std::pair<const char *, int> kEndings[] = {{".bmp", ITI_BITMAP}, {".jpg", ITI_JPEG},
        {".jpeg", ITI_JPEG}, {".png", ITI_PNG}, {".pdf", ITI_PDF}, {".svg", ITI_SVG}};
    std::string ending = file.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
        [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    for (const auto &[known, type] : kEndings) {
        if (ending == known)
            return type;
    }
    throw std::invalid_argument("a file's name ends in .png, .jpg, .bmp, .pdf or .svg");
}

/// Looks whether an SVG file was written, and to its end. The library reports success even when the disk is full.
class FileState
{
public:
    explicit FileState(std::filesystem::path file)
        : m_file(std::move(file))
        , m_before(now())
    {
    }

    bool isWholeSvgSince() const
    {
        if (now() == m_before)
            return false;
        std::ifstream file(m_file, std::ios::binary | std::ios::ate);
        const std::streamoff size = std::min<std::streamoff>(16, file.tellg());
        std::string end(static_cast<std::size_t>(std::max<std::streamoff>(0, size)), '\0');
        file.seekg(-size, std::ios::end);
        file.read(end.data(), size);
        return file && end.find("</svg>") != std::string::npos;
    }

private:
    std::filesystem::file_time_type now() const
    {
        std::error_code ignored;
        return std::filesystem::last_write_time(m_file, ignored);
    }

    std::filesystem::path m_file;
    std::filesystem::file_time_type m_before;
};

} // namespace detail

} // namespace kv

namespace std {
template <>
struct is_error_code_enum<kv::Errc> : true_type
{
};
} // namespace std

#endif
