#include "progress.h"

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int kPatience = 300; // milliseconds before a bar appears
constexpr int kStep = 100; // milliseconds between two updates
constexpr int kBarWidth = 40;

} // namespace

Progress::Progress()
    : m_onTerminal(isatty(STDERR_FILENO) == 1)
{
    m_running.start();
}

Progress::~Progress()
{
    clear();
}

void Progress::show(const QString &work, qint64 done, qint64 total)
{
    const qint64 now = m_running.elapsed();
    if (!m_onTerminal || total <= 0 || now < kPatience || now - m_lastShown < kStep)
        return;
    m_lastShown = now;
    const double share = std::clamp(static_cast<double>(done) / static_cast<double>(total), 0.0, 1.0);
    const int filled = static_cast<int>(share * kBarWidth);
    write(QString("%1  [%2%3] %4 %")
              .arg(work, QString(filled, '#'), QString(kBarWidth - filled, '.'))
              .arg(static_cast<int>(share * 100), 3));
}

void Progress::show(const QString &line)
{
    if (m_onTerminal)
        write(line);
}

void Progress::clear()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
    m_shown = false;
}

void Progress::write(const QString &line)
{
    std::fprintf(stderr, "\r%s\033[K", line.toLocal8Bit().constData());
    std::fflush(stderr);
    m_shown = true;
}
