#include "journal.h"

#include <cstdio>

namespace bridge {

namespace {

constexpr int kPauseMs = 10000;

} // namespace

Journal::Journal(QObject *parent)
    : QObject(parent)
{
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &Journal::summarise);
}

void Journal::refused(Refusal why)
{
    ++m_counts[static_cast<std::size_t>(why)];
    if (!m_pause.isActive())
        summarise();
}

void Journal::say(const QString &line)
{
    std::fprintf(stderr, "kv-sign-bridge: %s\n", qPrintable(line));
}

void Journal::summarise()
{
    bool hasNew = false;
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        if (m_counts[i] == m_written[i])
            continue;
        hasNew = true;
        m_written[i] = m_counts[i];
        say(QStringLiteral("refused: %1 (%2 so far)")
                .arg(QLatin1String(nameOf(static_cast<Refusal>(i))))
                .arg(m_counts[i]));
    }
    if (hasNew)
        m_pause.start(kPauseMs);
}

} // namespace bridge
