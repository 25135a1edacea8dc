#include "recorder.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <pthread.h>

namespace kvrec {

namespace {

std::string setting(const char *name, const char *otherwise)
{
    const char *value = std::getenv(name);
    return value && *value ? value : otherwise;
}

/// Whether an environment variable is set to anything but 0 or nothing.
bool isSet(const char *name)
{
    return setting(name, "0") != "0";
}

/// The recorder exports every operation, so one that the real driver lacks can only fail.
template <class Operation, class... Arguments>
int forward(const Operation operation, Arguments... arguments)
{
    return operation ? operation(arguments...) : KVSPDARI_FAILED;
}

/// The recorder of this process. It lives as long as the library is loaded.
class Current
{
public:
    Current() { pthread_atfork(nullptr, nullptr, startAnew); }
    ~Current() { delete m_recorder; }
    Current(const Current &) = delete;
    Current &operator=(const Current &) = delete;

    Recorder &recorder() const { return *m_recorder; }

private:
    static void startAnew();

    Recorder *m_recorder = new Recorder;
    Recorder *m_parents = nullptr;
};

Current current;

/// Runs in a forked child. Pad, threads and recording stayed with the parent, and locks that its threads held stay
/// locked here for ever, so the old recorder is leaked untouched.
void Current::startAnew()
{
    current.m_parents = current.m_recorder;
    current.m_recorder = new Recorder;
}

} // namespace

Recorder &Recorder::instance()
{
    return current.recorder();
}

/// If the process exits with the pad open, the real driver delivers packets until it is unloaded. Unload it first, so
/// that they are still written.
Recorder::~Recorder()
{
    m_driver = nullptr;
    m_packetFile = nullptr;
}

/// Loads the driver at the first call. Returns null, with a line on stderr, when it cannot be loaded.
const RealDriver *Recorder::driver()
{
    const std::lock_guard lock(m_mutex);
    if (!m_driver) {
        try {
            m_driver = std::make_unique<RealDriver>(
                setting("KVREC_DRIVER", "./libkvsignpaddrv-real.so"), isSet("KVREC_TRUST"));
        } catch (const std::exception &error) {
            std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
        }
    }
    return m_driver.get();
}

Recorder::FilePtr Recorder::openFile(int deviceType) const
{
    const std::string path = setting("KVREC_FILE", "");
    const ModelRow *pad = modelOfType(deviceType);
    if (path.empty() || !pad)
        return nullptr;
    try {
        return std::make_shared<SessionFile>(path, *pad, isSet("KVREC_SCRAMBLE"));
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kvsignpaddrv: %s; nothing is recorded\n", error.what());
        return nullptr;
    }
}

Recorder::FilePtr Recorder::file()
{
    const std::lock_guard lock(m_mutex);
    return m_file;
}

/// Writes the packet before passing it on, so that nothing is delivered that is missing in the file.
void Recorder::receivePacket(int x, int y, int pressure, int status)
{
    Recorder &recorder = instance();
    if (SessionFile *file = recorder.m_packetFile)
        file->packet({x, y, pressure, status});
    if (const NOTIFY_HWSIGNDATA receiver = recorder.m_penPacket)
        receiver(x, y, pressure, status);
}

void Recorder::receiveFingerprint(unsigned char *data, int length, int score)
{
    Recorder &recorder = instance();
    if (SessionFile *file = recorder.m_packetFile)
        file->fingerprint(data, length, score);
    if (const NOTIFY_FPDATA receiver = recorder.m_fingerprint)
        receiver(data, length, score);
}

int Recorder::initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint)
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const bool isFirst = begin(deviceType, penPacket, fingerprint);
    const int result = forward(
        real->Initial, deviceType, penPacket ? &receivePacket : nullptr, fingerprint ? &receiveFingerprint : nullptr);
    if (const FilePtr written = file())
        written->call("Initial", " " + std::to_string(deviceType), result);
    if (isFirst && result != KVSPDARI_SUCCESS)
        end();
    return result;
}

/// Returns false while a session is open: the driver will refuse another one, and the open one must stay as it is.
bool Recorder::begin(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint)
{
    const std::lock_guard lock(m_mutex);
    if (m_isOpen)
        return false;
    m_isOpen = true;
    m_file = openFile(deviceType);
    m_packetFile = m_file.get();
    m_penPacket = penPacket;
    m_fingerprint = fingerprint;
    return true;
}

void Recorder::end()
{
    const std::lock_guard lock(m_mutex);
    m_isOpen = false;
    m_packetFile = nullptr;
    m_penPacket = nullptr;
    m_fingerprint = nullptr;
    m_file = nullptr;
}

/// When the real driver's UnInitial has returned, no callback runs any more.
int Recorder::unInitial()
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const int result = forward(real->UnInitial);
    if (const FilePtr written = file())
        written->call("UnInitial", "", result);
    end();
    return result;
}

int Recorder::clearContent()
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const FilePtr written = file();
    if (written)
        written->beginTime();
    const int result = forward(real->ClearDeviceContent);
    if (written)
        written->call("ClearDeviceContent", "", result);
    return result;
}

int Recorder::command(const char *name, const Command RealDriver::*operation, bool on)
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const int result = forward(real->*operation, on);
    if (const FilePtr written = file())
        written->call(name, on ? " 1" : " 0", result);
    return result;
}

int Recorder::query(const char *name, const Query RealDriver::*operation, char *text, int size)
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const int result = forward(real->*operation, text, size);
    if (const FilePtr written = file()) {
        if (text && size > 0 && result == KVSPDARI_SUCCESS)
            written->text(name, std::string(text, strnlen(text, static_cast<std::size_t>(size))));
        written->call(name, " " + std::to_string(size), result);
    }
    return result;
}

int Recorder::showPicture(unsigned char *image, int length, int width, int height, bool *abort)
{
    const RealDriver *real = driver();
    if (!real)
        return KVSPDARI_FAILED;
    const int result = forward(real->ShowFPImageOnDevice, image, length, width, height, abort);
    const FilePtr written = file();
    if (!written)
        return result;
    const std::string arguments =
        " " + std::to_string(length) + " " + std::to_string(width) + " " + std::to_string(height);
    if (result != KVSPDARI_SUCCESS && abort != nullptr && __atomic_load_n(abort, __ATOMIC_ACQUIRE))
        written->callBrokenOff("ShowFPImageOnDevice", arguments, result);
    else
        written->call("ShowFPImageOnDevice", arguments, result);
    return result;
}

} // namespace kvrec
