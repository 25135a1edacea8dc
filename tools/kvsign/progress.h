/// @file
/// A line on the terminal that shows how far the work is. Silent when standard error is no terminal.
#ifndef PROGRESS_H
#define PROGRESS_H

#include <QElapsedTimer>
#include <QString>

class Progress
{
public:
    Progress();
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    /// Shows a bar, once the work has taken a moment.
    void show(const QString &work, qint64 done, qint64 total);

    /// Shows this text at once.
    void show(const QString &line);

    /// Clears the line.
    void clear();

private:
    void write(const QString &line);

    bool m_onTerminal;
    bool m_shown = false;
    qint64 m_lastShown = 0;
    QElapsedTimer m_running;
};

#endif
