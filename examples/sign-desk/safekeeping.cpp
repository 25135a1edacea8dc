#include "safekeeping.h"

#include <algorithm>

namespace signdesk {

namespace {

constexpr int kMostSlots = 64; ///< desks that run, and files that were left
constexpr int kMoveSettles = 250; ///< milliseconds after a field was moved

QByteArray fileOf(int slot)
{
    return "signature-" + QByteArray::number(slot);
}

QByteArray lockOf(int slot)
{
    return "desk-" + QByteArray::number(slot);
}

} // namespace

SafeKeeping::SafeKeeping(Counter &counter, QObject *parent)
    : QObject(parent)
    , m_counter(counter)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(kMoveSettles);
    connect(&m_timer, &QTimer::timeout, this, &SafeKeeping::follow);
    connect(&counter.signing(), &Signing::confirmed, this, &SafeKeeping::follow);
    connect(&counter, &Counter::keptChanged, this, &SafeKeeping::follow);
    connect(&counter, &Counter::documentChanged, this, &SafeKeeping::follow);
    connect(&counter, &Counter::confirmedChanged, &m_timer, QOverload<>::of(&QTimer::start));
}

QString SafeKeeping::path() const
{
    return m_slot == 0 ? m_folder.path() : m_folder.path() + QLatin1Char('/') + QString::fromLatin1(fileOf(m_slot));
}

void SafeKeeping::follow()
{
    m_timer.stop();
    if (m_counter.isKept()) {
        removeOwn();
        m_isSafe = true;
    } else if (m_counter.isUnderstood()) { // else what was confirmed stays in the file as it was
        m_isSafe = write(m_counter.unsaved());
        if (!m_isSafe)
            emit failed();
    }
}

bool SafeKeeping::write(UnsavedSignature unsaved)
{
    const QByteArray content = packed(unsaved);
    if (content == m_written)
        return true;
    unsaved.time = QDateTime::currentDateTime();
    if (!takeSlot() || !m_folder.write(fileOf(m_slot), packed(unsaved)))
        return false;
    m_written = content;
    return true;
}

/// The first one that nobody holds and where nothing was left.
bool SafeKeeping::takeSlot()
{
    if (!m_folder.isOpen())
        m_folder = StateFolder(); // it may have been put right
    for (int slot = 1; m_slot == 0 && slot <= kMostSlots && m_folder.isOpen(); ++slot) {
        OpenedFile lock = m_folder.lock(lockOf(slot));
        if (!lock.isOpen() || m_folder.has(fileOf(slot)))
            continue;
        m_lock = std::move(lock);
        m_slot = slot;
    }
    return m_slot != 0;
}

std::vector<LeftSignature> SafeKeeping::left(QStringList &damaged) const
{
    std::vector<LeftSignature> found;
    for (int slot = 1; m_folder.isOpen() && slot <= kMostSlots; ++slot) {
        if (slot == m_slot || !m_folder.has(fileOf(slot)))
            continue;
        OpenedFile lock = m_folder.lock(lockOf(slot));
        if (!lock.isOpen()) // of a desk that runs
            continue;
        const std::optional<QByteArray> file = m_folder.read(fileOf(slot));
        const std::optional<UnsavedSignature> signature = file.has_value() ? unpacked(*file) : std::nullopt;
        if (signature.has_value()) {
            found.push_back({std::move(lock), slot, *signature});
            continue;
        }
        const QByteArray aside = fileOf(slot) + ".damaged-" + QByteArray::number(QDateTime::currentSecsSinceEpoch());
        if (m_folder.rename(fileOf(slot), aside))
            damaged << m_folder.path() + QLatin1Char('/') + QString::fromLatin1(aside);
    }
    std::sort(found.begin(), found.end(),
        [](const LeftSignature &one, const LeftSignature &other) { return one.signature.time > other.signature.time; });
    return found;
}

void SafeKeeping::remove(const LeftSignature &left) const
{
    m_folder.remove(fileOf(left.slot));
}

void SafeKeeping::end()
{
    disconnect(&m_counter, nullptr, this, nullptr);
    disconnect(&m_counter.signing(), nullptr, this, nullptr);
    disconnect(&m_counter, nullptr, &m_timer, nullptr);
    m_timer.stop();
    removeOwn();
}

void SafeKeeping::removeOwn()
{
    if (m_slot != 0)
        m_folder.remove(fileOf(m_slot));
    m_written.clear();
}

} // namespace signdesk
