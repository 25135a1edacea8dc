#include "virtuallink.h"

#include "windowconnection.h"

#include <algorithm>
#include <cstdio>

namespace kvsim {

namespace {

using namespace std::chrono_literals;

constexpr auto kRetry = 200ms;
/// Packets are delivered this much after the window's time stamp. The window is late now and then; without the delay
/// its packets would come unevenly.
constexpr auto kLatency = 8ms;
/// A packet is never held back longer than this, whatever time stamp the window gives it.
constexpr auto kFurthest = 2s;

std::string initialLine(const ModelRow &pad)
{
    return "Initial " + std::to_string(pad.deviceType);
}

std::string operationOf(const std::string &line)
{
    return line.substr(0, line.find(' '));
}

} // namespace

VirtualLink::VirtualLink(const ModelRow &pad)
    : m_pad(pad)
{
    try {
        m_connection = std::make_shared<WindowConnection>(initialLine(pad));
    } catch (const std::runtime_error &error) {
        throw NoVirtualPad(error.what());
    }
    m_opening = m_connection->window().opening();
}

VirtualLink::~VirtualLink()
{
    stop();
}

void VirtualLink::start(std::shared_ptr<Session> session, int maxPressure)
{
    m_session = std::move(session);
    m_maxPressure = maxPressure;
    m_thread = std::thread([this] { run(); });
}

void VirtualLink::stop()
{
    tell("UnInitial");
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        if (m_connection)
            m_connection->close();
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void VirtualLink::tell(const std::string &line)
{
    const std::lock_guard lock(m_mutex);
    m_told[operationOf(line)] = line;
    if (operationOf(line) == "ClearDeviceContent")
        m_told.erase("ShowFPImageOnDevice");
    if (m_connection && !m_connection->send(line))
        m_connection->close(); // a window that does not read is treated as closed
}

void VirtualLink::run()
{
    for (;;) {
        playConnection();
        Event gone;
        gone.kind = Event::Kind::Unplug;
        setIn({gone});
        do {
            std::unique_lock lock(m_mutex);
            m_changed.wait_for(lock, kRetry, [this] { return m_stopping; });
            if (m_stopping)
                return;
        } while (!reconnect());
    }
}

/// Passes on what the window sends until the connection is closed.
void VirtualLink::playConnection()
{
    const auto connection = m_connection;
    const ModelRow &window = *modelOfName(connection->window().model());
    EventTranslator translator({true, {}}, {&window, window.maxPressure, &m_pad, m_maxPressure});
    const auto begin = connection->begin() + kLatency;
    try {
        std::vector<Delivery> deliveries;
        for (std::vector<Event> events; connection->next(events); deliveries.clear()) {
            translator.translate(events, deliveries);
            for (Delivery &delivery : deliveries) {
                const auto due = begin + std::chrono::microseconds(delivery.timeUs);
                if (!m_session->append(std::move(delivery), std::min(due, Clock::now() + kFurthest)))
                    throw std::runtime_error("the virtual pad sends more than is taken");
            }
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "kvsignpaddrv: %s\n", error.what());
    }
    const std::lock_guard lock(m_mutex);
    m_connection = nullptr;
}

bool VirtualLink::reconnect()
{
    std::shared_ptr<WindowConnection> connection;
    try {
        connection = std::make_shared<WindowConnection>(initialLine(m_pad));
    } catch (const std::runtime_error &) {
        return false; // not open yet
    }
    if (connection->window().answer() != KVSPDARI_SUCCESS)
        return false;
    std::vector<Event> back = connection->window().opening();
    back.emplace_back().kind = Event::Kind::Plug;
    setIn(std::move(back));
    const std::lock_guard lock(m_mutex);
    for (const auto &[operation, line] : m_told)
        connection->send(line);
    m_connection = std::move(connection);
    if (m_stopping)
        m_connection->close();
    return true;
}

/// Queues the faults after everything that the window has sent, even when the queue is full.
void VirtualLink::setIn(std::vector<Event> faults)
{
    m_session->append({0, std::make_shared<const std::vector<Event>>(std::move(faults))}, Clock::now(), true);
}

std::string VirtualLink::pictureLine(const unsigned char *image, int width, int height)
{
    constexpr const char *kDigits = "0123456789abcdef";
    std::string line = "ShowFPImageOnDevice " + std::to_string(width) + " " + std::to_string(height) + " ";
    const std::size_t length = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 2;
    for (std::size_t i = 0; i < length; ++i)
        line.append({kDigits[image[i] >> 4], kDigits[image[i] & 15]});
    return line;
}

} // namespace kvsim
