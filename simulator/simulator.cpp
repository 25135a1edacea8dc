#include "simulator.h"

#include "pictures.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <system_error>

namespace kvsim {

Simulator &Simulator::instance()
{
    static Simulator simulator; // destroyed when the library is unloaded: an open session then ends and is joined
    return simulator;
}

/// Writes the call into the journal and answers the result that a test asked for, or 0.
int Simulator::noteCall(const char *operation, const std::string &arguments)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.calls.append(operation).append(arguments).append("\n");
    const auto wish = m_wishes.results.find(operation);
    return wish == m_wishes.results.end() ? KVSPDARI_SUCCESS : wish->second;
}

Simulator::SessionPtr Simulator::openSession()
{
    const std::lock_guard lock(m_mutex);
    return m_session;
}

int Simulator::initial(int deviceType, NOTIFY_HWSIGNDATA penPacket, NOTIFY_FPDATA fingerprint)
{
    const int wished =
        noteCall("Initial", " " + std::to_string(deviceType) + " fp=" + std::to_string(fingerprint != nullptr));
    if (wished != KVSPDARI_SUCCESS)
        return wished;
    const PadModel *pad = padOfType(deviceType);
    if (!pad || !penPacket)
        return KVSPDART_INVALID_PARAMETERS;
    releaseEndedSessions();
    try {
        return openPad(*pad, {penPacket, pad->hasFingerprintSensor ? fingerprint : nullptr});
    } catch (const std::system_error &error) { // the thread could not be started
        std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
        return KVSPDARI_LIBUSB_CREATE_THREAD_FAIL;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
        return KVSPDARI_FAILED;
    }
}

int Simulator::openPad(const PadModel &pad, const Receivers &receivers)
{
    const Settings settings = readSettings();
    SessionPtr session;
    {
        const std::lock_guard lock(m_mutex);
        if (m_session)
            return KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL; // the pad has one user
        Script script = loadScript(settings.recording, pad, maxPressureOf(pad, versionText(pad, settings)));
        m_settings = settings;
        m_pad = &pad;
        m_screenOn = false;
        const Timing timing{settings.speed, settings.delayMs, settings.repeat};
        session = m_session = std::make_shared<Session>(receivers, std::move(script), timing, m_wishes.firstPackets);
    }
    session->waitForFirstPackets();
    return KVSPDARI_SUCCESS;
}

std::string Simulator::versionText(const PadModel &pad, const Settings &settings) const
{
    if (const auto wish = m_wishes.texts.find("GetDevicePartsVersion"); wish != m_wishes.texts.end() && wish->second)
        return *wish->second;
    return settings.version.empty() ? pad.versionText : settings.version;
}

/// A session that was closed from inside a callback cannot be joined there; this is done at the next occasion.
void Simulator::releaseEndedSessions()
{
    std::vector<SessionPtr> ended; // joined after the lock is gone
    const std::lock_guard lock(m_mutex);
    const auto firstEnded = std::partition(
        m_retired.begin(), m_retired.end(), [](const SessionPtr &session) { return !session->hasEnded(); });
    ended.assign(std::make_move_iterator(firstEnded), std::make_move_iterator(m_retired.end()));
    m_retired.erase(firstEnded, m_retired.end());
}

int Simulator::unInitial()
{
    const int wished = noteCall("UnInitial", "");
    std::vector<SessionPtr> sessions;
    {
        const std::lock_guard lock(m_mutex);
        if (m_session)
            m_retired.push_back(std::move(m_session));
        sessions = m_retired; // whoever calls second waits for the last callback as well
        m_screenOn = false;
    }
    for (const SessionPtr &session : sessions)
        session->stop();
    sessions.clear();
    releaseEndedSessions();
    return wished;
}

int Simulator::openLcd(bool on)
{
    if (const int result = plainCommand("OpenDeviceLCD", on); result != KVSPDARI_SUCCESS)
        return result;
    const std::lock_guard lock(m_mutex);
    m_screenOn = on && m_pad->hasScreen;
    return m_pad->hasScreen ? KVSPDARI_SUCCESS : KVSPDARI_LIBUSB_SENT_CMD_FAIL;
}

int Simulator::plainCommand(const char *operation, bool on)
{
    const int wished = noteCall(operation, on ? " 1" : " 0");
    if (wished != KVSPDARI_SUCCESS)
        return wished;
    return openSession() ? KVSPDARI_SUCCESS : KVSPDARI_FAILED;
}

int Simulator::clearContent()
{
    const int wished = noteCall("ClearDeviceContent", "");
    if (wished != KVSPDARI_SUCCESS)
        return wished;
    const SessionPtr session = openSession();
    if (!session)
        return KVSPDARI_FAILED;
    session->startPlayback();
    return KVSPDARI_SUCCESS;
}

std::string Simulator::ownText(const std::string &operation) const
{
    if (operation == "GetDevicePartsVersion")
        return versionText(*m_pad, m_settings);
    const std::string kind = operation.substr(std::strlen("GetDevice")); // PenID, PadID, SecureID
    return "SIM-" + std::string(m_pad->name) + "-" + kind + "-0001";
}

int Simulator::writeText(const char *operation, char *buffer, int size)
{
    const int wished = noteCall(operation, " " + std::to_string(size));
    if (!buffer || size <= 0)
        return KVSPDART_INVALID_PARAMETERS;
    const SessionPtr session = openSession();
    if (!session)
        return wished != KVSPDARI_SUCCESS ? wished : KVSPDARI_FAILED;
    const std::lock_guard lock(m_mutex);
    const auto wish = m_wishes.texts.find(operation);
    const auto text = wish == m_wishes.texts.end() ? std::optional(ownText(operation)) : wish->second;
    if (text) {
        const auto length = std::min(text->size(), static_cast<std::size_t>(size) - 1);
        std::memcpy(buffer, text->data(), length);
        buffer[length] = '\0';
    }
    return wished;
}

int Simulator::showPicture(const unsigned char *image, int length, int width, int height, const bool *abort)
{
    const int wished = noteCall("ShowFPImageOnDevice",
        " " + std::to_string(length) + " " + std::to_string(width) + " " + std::to_string(height));
    if (wished != KVSPDARI_SUCCESS)
        return wished;
    if (!image || width <= 0 || height <= 0 || length / 2 / width != height || length != width * height * 2)
        return KVSPDART_INVALID_PARAMETERS;
    const SessionPtr session = openSession();
    if (!session)
        return KVSPDARI_FAILED;
    int delayMs = 0;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_pad->hasFingerprintSensor)
            return KVSPDARI_LIBUSB_SENT_CMD_FAIL; // its screen has no place for a picture
        delayMs = m_wishes.screenDelayMs >= 0 ? m_wishes.screenDelayMs : m_settings.screenMs;
    }
    if (!transferPicture(*session, delayMs, abort))
        return KVSPDARI_LIBUSB_SENT_CMD_FAIL;
    return keepPicture(image, length, width, height);
}

/// The caller sets the flag from another thread without telling anyone, so it is looked at all the time.
bool Simulator::transferPicture(const Session &session, int delayMs, const bool *abort) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(delayMs);
    for (;;) {
        if (session.isStopping() || (abort && __atomic_load_n(abort, __ATOMIC_ACQUIRE)))
            return false;
        if (std::chrono::steady_clock::now() >= end)
            return true;
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
}

int Simulator::keepPicture(const unsigned char *image, int length, int width, int height)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.lastPicture.assign(image, image + length);
    const int number = ++m_wishes.shownPictures;
    if (!m_settings.pictures.empty() && !storePicture(m_settings.pictures, number, image, width, height))
        return KVSPDARI_FAILED;
    return KVSPDARI_SUCCESS;
}

} // namespace kvsim
