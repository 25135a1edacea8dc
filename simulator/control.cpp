/// @file
/// The control functions of simulatorcontrol.h; the simulator does their work.
#include "simulatorcontrol.h"

#include "simulator.h"

#include <algorithm>
#include <cstring>

namespace kvsim {

namespace {

std::string withoutPrefix(const char *operation)
{
    constexpr std::string_view kPrefix = "KVSPDAPI_";
    const std::string_view name = operation ? operation : "";
    return std::string(name.substr(0, kPrefix.size()) == kPrefix ? name.substr(kPrefix.size()) : name);
}

} // namespace

int Simulator::sendPackets(const Packet *packets, int count)
{
    const SessionPtr session = openSession();
    return session ? session->sendPackets(packets, packets ? count : 0) : -1;
}

int Simulator::sendFingerprint(const unsigned char *data, int length, int score)
{
    const SessionPtr session = openSession();
    return session ? session->sendFingerprint(data, length, score) : -1;
}

int Simulator::endDelay()
{
    const SessionPtr session = openSession();
    if (session)
        session->endDelay();
    return session ? 0 : -1;
}

int Simulator::waitUntilPlayed(int timeoutMs)
{
    const SessionPtr session = openSession();
    return session ? session->waitUntilPlayed(timeoutMs) : -1;
}

void Simulator::setFirstPackets(const Packet *packets, int count)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.firstPackets.assign(packets, packets ? packets + std::max(count, 0) : packets);
}

void Simulator::setResult(const char *operation, int result)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.results[withoutPrefix(operation)] = result;
}

void Simulator::setText(const char *operation, const char *text)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.texts[withoutPrefix(operation)] = text ? std::optional<std::string>(text) : std::nullopt;
}

void Simulator::setScreenDelay(int milliseconds)
{
    const std::lock_guard lock(m_mutex);
    m_wishes.screenDelayMs = milliseconds;
}

std::string Simulator::calls()
{
    const std::lock_guard lock(m_mutex);
    return m_wishes.calls;
}

void Simulator::forgetCalls()
{
    const std::lock_guard lock(m_mutex);
    m_wishes.calls.clear();
}

int Simulator::shownPictures()
{
    const std::lock_guard lock(m_mutex);
    return m_wishes.shownPictures;
}

std::vector<unsigned char> Simulator::lastPicture()
{
    const std::lock_guard lock(m_mutex);
    return m_wishes.lastPicture;
}

bool Simulator::isOpen()
{
    return openSession() != nullptr;
}

bool Simulator::isScreenOn()
{
    const std::lock_guard lock(m_mutex);
    return m_pad.screenOn;
}

void Simulator::reset()
{
    const std::lock_guard lock(m_mutex);
    m_wishes = {};
    m_unplugged = false;
}

} // namespace kvsim

using kvsim::Simulator;

int KVSIM_SendPackets(const KVSIM_PACKET *packets, int count)
{
    return Simulator::instance().sendPackets(packets, count);
}

int KVSIM_SendFingerprint(const unsigned char *data, int length, int score)
{
    return Simulator::instance().sendFingerprint(data, length, score);
}

void KVSIM_SetReadingThreadPackets(const KVSIM_PACKET *packets, int count)
{
    Simulator::instance().setFirstPackets(packets, count);
}

void KVSIM_SetResult(const char *operation, int result)
{
    Simulator::instance().setResult(operation, result);
}

void KVSIM_SetText(const char *operation, const char *text)
{
    Simulator::instance().setText(operation, text);
}

void KVSIM_SetScreenDelay(int milliseconds)
{
    Simulator::instance().setScreenDelay(milliseconds);
}

int KVSIM_Calls(char *buffer, int size)
{
    const std::string calls = Simulator::instance().calls();
    if (buffer && size > 0) {
        const auto length = std::min(calls.size(), static_cast<std::size_t>(size) - 1);
        std::memcpy(buffer, calls.data(), length);
        buffer[length] = '\0';
    }
    return static_cast<int>(calls.size());
}

void KVSIM_ForgetCalls(void)
{
    Simulator::instance().forgetCalls();
}

int KVSIM_ShownPictures(void)
{
    return Simulator::instance().shownPictures();
}

int KVSIM_LastPicture(unsigned char *buffer, int size)
{
    const std::vector<unsigned char> picture = Simulator::instance().lastPicture();
    if (buffer && size > 0)
        std::copy_n(picture.begin(), std::min(picture.size(), static_cast<std::size_t>(size)), buffer);
    return static_cast<int>(picture.size());
}

int KVSIM_IsOpen(void)
{
    return Simulator::instance().isOpen();
}

int KVSIM_IsScreenOn(void)
{
    return Simulator::instance().isScreenOn();
}

int KVSIM_EndDelay(void)
{
    return Simulator::instance().endDelay();
}

int KVSIM_WaitUntilPlayed(int timeoutMs)
{
    return Simulator::instance().waitUntilPlayed(timeoutMs);
}

void KVSIM_Reset(void)
{
    Simulator::instance().reset();
}
