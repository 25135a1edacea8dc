#include "simulator.h"

#include "modelrules.h"
#include "pictures.h"
#include "windowconnection.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <pthread.h>
#include <system_error>
#include <utility>

namespace kvsim {

namespace {

Simulator *current = new Simulator;
Simulator *parents = nullptr; ///< in a forked child: what it leaves alone

/// Runs in a forked child. The threads stayed with the parent and the locks that they held stay locked here for ever,
/// so the old simulator is leaked untouched and a new one takes its place.
void startAnew()
{
    WindowConnection::leaveToParent();
    parents = current;
    current = new Simulator;
}

/// At the end of a process this comes before the destructors of static objects and the atexit() functions that are
/// older than the driver. A session must not call back any more then, but one of these may still close its pad.
class EndingSession
{
public:
    EndingSession() { pthread_atfork(nullptr, nullptr, startAnew); }
    ~EndingSession()
    {
        if (current != nullptr)
            current->unInitial();
    }
    EndingSession(const EndingSession &) = delete;
    EndingSession &operator=(const EndingSession &) = delete;
};

const EndingSession endingSession;

/// When the driver is unloaded this comes before the destructors of its static objects; at the end of a process after
/// those of all objects.
[[gnu::destructor]] void unload()
{
    delete std::exchange(current, nullptr);
}

} // namespace

Simulator &Simulator::instance()
{
    return *current;
}

Simulator::~Simulator()
{
    unInitial();
}

/// Writes the call into the journal. Returns the result that a test or the recording asked for, else 0.
int Simulator::noteCall(const char *operation, const std::string &arguments)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.calls.append(operation).append(arguments).append("\n");
    for (const auto *results : {&m_wishes.results, &m_pad.faults.results})
        if (const auto asked = results->find(operation); asked != results->end())
            return asked->second;
    return KVSPDARI_SUCCESS;
}

Simulator::SessionPtr Simulator::openSession()
{
    const std::lock_guard lock(m_mutex);
    return m_session;
}

/// The session while the pad is open and plugged in; otherwise null, with the result that a command returns then.
Simulator::SessionPtr Simulator::readySession(int &result)
{
    SessionPtr session = openSession();
    result = !session ? KVSPDARI_FAILED : session->isGone() ? KVSPDARI_LIBUSB_SENT_CMD_FAIL : KVSPDARI_SUCCESS;
    return result == KVSPDARI_SUCCESS ? session : nullptr;
}

int Simulator::initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint)
{
    const int wished =
        noteCall("Initial", " " + std::to_string(deviceType) + " fp=" + std::to_string(fingerprint != nullptr));
    if (wished != KVSPDARI_SUCCESS)
        return wished;
    const ModelRow *pad = modelOfType(deviceType);
    if (!pad || !penPacket)
        return KVSPDART_INVALID_PARAMETERS;
    if (openSession())
        return KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL; // it is open already
    releaseEndedSessions();
    try {
        return openPad(*pad,
            {penPacket, pad->hasFingerprintSensor ? fingerprint : nullptr,
                [this](const std::vector<Event> &faults) { takeFaults(faults); }});
    } catch (const NoVirtualPad &) {
        return KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL;
    } catch (const std::system_error &error) { // the thread could not be started
        std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
        return KVSPDARI_LIBUSB_CREATE_THREAD_FAIL;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
        return KVSPDARI_FAILED;
    }
}

int Simulator::openPad(const ModelRow &pad, const Receivers &receivers)
{
    OpenPad opened{&pad, readSettings()};
    std::optional<OpenedRecording> recording;
    const std::vector<Event> *opening = nullptr;
    if (opened.settings.recording == "virtual") {
        opened.link = std::make_shared<VirtualLink>(pad);
        opening = &opened.link->opening();
    } else if (opened.settings.recording != "none") {
        recording.emplace(opened.settings.recording);
        opening = &recording->opening();
        opened.recordedVersion = recording->versionTextFor(pad);
    }
    if (opening)
        for (const Event &event : *opening)
            opened.faults.take(event);
    if (const int result = startSession(std::move(opened), receivers, std::move(recording)); result != KVSPDARI_SUCCESS)
        return result;
    if (const SessionPtr session = openSession())
        session->waitForFirstPackets();
    return KVSPDARI_SUCCESS;
}

int Simulator::startSession(OpenPad pad, const Receivers &receivers, std::optional<OpenedRecording> recording)
{
    const std::lock_guard lock(m_mutex);
    if (m_session)
        return KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL;
    if (const int result = refusal(pad); result != KVSPDARI_SUCCESS)
        return result;
    const int maxPressure = maxPressureOf(*pad.model, versionText(pad)).value_or(pad.model->maxPressure);
    Script script = recording ? recording->scriptFor(*pad.model, maxPressure) : Script();
    const Timing timing{pad.settings.speed, pad.settings.delayMs, pad.settings.repeat};
    m_session = std::make_shared<Session>(receivers, std::move(script), timing, m_wishes.firstPackets);
    m_pad = std::move(pad);
    if (m_pad.link)
        m_pad.link->start(m_session, maxPressure);
    return KVSPDARI_SUCCESS;
}

/// The result that the recording or the window gives Initial; 0 lets the pad open.
int Simulator::refusal(const OpenPad &pad) const
{
    if (pad.faults.gone || (m_unplugged && !pad.link))
        return KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL;
    const auto asked = pad.faults.results.find("Initial");
    const bool isOverruled = m_wishes.results.count("Initial") != 0;
    return asked == pad.faults.results.end() || isOverruled ? KVSPDARI_SUCCESS : asked->second;
}

/// The text that a test or the recording has set for a query. Null: none was set; an empty optional: write nothing.
const std::optional<std::string> *Simulator::askedText(const OpenPad &pad, const std::string &query) const
{
    for (const auto *texts : {&m_wishes.texts, &pad.faults.texts})
        if (const auto asked = texts->find(query); asked != texts->end())
            return &asked->second;
    return nullptr;
}

std::string Simulator::versionText(const OpenPad &pad) const
{
    if (const auto *asked = askedText(pad, "GetDevicePartsVersion"); asked && *asked)
        return **asked;
    if (!pad.settings.version.empty())
        return pad.settings.version;
    if (!pad.recordedVersion.empty())
        return pad.recordedVersion;
    return "KV" + std::string(pad.model->name) + " SIM 1.0";
}

/// Runs on the session's thread.
void Simulator::takeFaults(const std::vector<Event> &faults)
{
    const std::lock_guard lock(m_mutex);
    for (const Event &fault : faults)
        m_pad.faults.take(fault);
    if (!m_pad.link)
        m_unplugged = m_pad.faults.gone;
}

void Simulator::tellWindow(const std::string &line)
{
    std::shared_ptr<VirtualLink> link;
    {
        const std::lock_guard lock(m_mutex);
        link = m_pad.link;
    }
    if (link)
        link->tell(line);
}

/// Joins the threads of sessions that were closed from inside a callback: a thread cannot join itself.
void Simulator::releaseEndedSessions()
{
    std::vector<SessionPtr> ended; // destroyed, and so joined, after the lock is released
    const std::lock_guard lock(m_mutex);
    const auto firstEnded = std::partition(
        m_retired.begin(), m_retired.end(), [](const SessionPtr &session) { return !session->hasEnded(); });
    ended.assign(std::make_move_iterator(firstEnded), std::make_move_iterator(m_retired.end()));
    m_retired.erase(firstEnded, m_retired.end());
}

int Simulator::unInitial()
{
    const int wished = noteCall("UnInitial", "");
    SessionPtr closed;
    std::vector<SessionPtr> sessions;
    std::shared_ptr<VirtualLink> link;
    {
        const std::lock_guard lock(m_mutex);
        closed = std::move(m_session);
        if (closed)
            m_retired.push_back(closed);
        sessions = m_retired; // a second caller at the same time must wait for the last callback too
        link = std::move(m_pad.link);
        m_pad.faults = {};
        m_pad.screenOn = false;
    }
    if (link)
        link->stop();
    for (const SessionPtr &session : sessions)
        session->stop();
    if (closed && closed->comesBack()) {
        const std::lock_guard lock(m_mutex);
        if (!m_session)
            m_unplugged = false; // only now: until stop() returned, the session could still unplug the pad
    }
    closed.reset();
    sessions.clear();
    releaseEndedSessions();
    return wished;
}

int Simulator::openLcd(bool on)
{
    if (const int result = plainCommand("OpenDeviceLCD", on); result != KVSPDARI_SUCCESS)
        return result;
    const std::lock_guard lock(m_mutex);
    m_pad.screenOn = on && m_pad.model->hasScreen;
    return m_pad.model->hasScreen ? KVSPDARI_SUCCESS : KVSPDARI_LIBUSB_SENT_CMD_FAIL;
}

int Simulator::plainCommand(const char *operation, bool on)
{
    const char *const argument = on ? " 1" : " 0";
    int result = noteCall(operation, argument);
    if (result == KVSPDARI_SUCCESS && readySession(result))
        tellWindow(std::string(operation) + argument);
    return result;
}

int Simulator::clearContent()
{
    int result = noteCall("ClearDeviceContent", "");
    if (result != KVSPDARI_SUCCESS)
        return result;
    if (const SessionPtr session = readySession(result)) {
        session->startPlayback();
        tellWindow("ClearDeviceContent");
    }
    return result;
}

std::string Simulator::ownText(const std::string &query) const
{
    if (query == "GetDevicePartsVersion")
        return versionText(m_pad);
    const std::string kind = query.substr(std::strlen("GetDevice")); // PenID, PadID, SecureID
    return "SIM-" + std::string(m_pad.model->name) + "-" + kind + "-0001";
}

int Simulator::writeText(const char *query, char *buffer, int size)
{
    const int wished = noteCall(query, " " + std::to_string(size));
    if (!buffer || size <= 0)
        return KVSPDART_INVALID_PARAMETERS;
    int result = KVSPDARI_SUCCESS;
    if (!readySession(result))
        return wished != KVSPDARI_SUCCESS ? wished : result;
    const std::lock_guard lock(m_mutex);
    const auto *asked = askedText(m_pad, query);
    if (const auto text = asked ? *asked : std::optional(ownText(query))) {
        const auto length = std::min(text->size(), static_cast<std::size_t>(size) - 1);
        std::memcpy(buffer, text->data(), length);
        buffer[length] = '\0';
    }
    return wished;
}

int Simulator::showPicture(const unsigned char *image, int length, int width, int height, const bool *abort)
{
    int result = noteCall("ShowFPImageOnDevice",
        " " + std::to_string(length) + " " + std::to_string(width) + " " + std::to_string(height));
    if (result != KVSPDARI_SUCCESS)
        return result;
    if (!image || width <= 0 || height <= 0 || length / 2 / width != height || length != width * height * 2)
        return KVSPDART_INVALID_PARAMETERS;
    const SessionPtr session = readySession(result);
    if (!session)
        return result;
    int delayMs = 0;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_pad.model->hasFingerprintSensor)
            return KVSPDARI_LIBUSB_SENT_CMD_FAIL; // this model shows no pictures
        for (const int asked : {m_pad.settings.screenMs, m_pad.faults.screenMs})
            delayMs = asked >= 0 ? asked : delayMs;
    }
    if (!transferPicture(*session, delayMs, abort))
        return KVSPDARI_LIBUSB_SENT_CMD_FAIL;
    tellWindow(VirtualLink::pictureLine(image, width, height));
    return keepPicture(image, length, width, height);
}

/// How long a picture takes that was begun with that time. A test may change it meanwhile.
std::chrono::milliseconds Simulator::wishedTime(int otherwiseMs)
{
    const std::lock_guard lock(m_mutex);
    return std::chrono::milliseconds(m_wishes.screenDelayMs >= 0 ? m_wishes.screenDelayMs : otherwiseMs);
}

/// Polls the flag, because the caller sets it from another thread and cannot wake this one.
bool Simulator::transferPicture(const Session &session, int delayMs, const bool *abort)
{
    const auto begin = std::chrono::steady_clock::now();
    for (;;) {
        if (session.isStopping() || session.isGone() || (abort != nullptr && __atomic_load_n(abort, __ATOMIC_ACQUIRE)))
            return false;
        if (std::chrono::steady_clock::now() >= begin + wishedTime(delayMs))
            return true;
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
}

int Simulator::keepPicture(const unsigned char *image, int length, int width, int height)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.lastPicture.assign(image, image + length);
    const int number = ++m_wishes.shownPictures;
    const std::string &directory = m_pad.settings.pictures;
    if (!directory.empty() && !storePicture(directory, number, image, width, height))
        return KVSPDARI_FAILED;
    return KVSPDARI_SUCCESS;
}

} // namespace kvsim
