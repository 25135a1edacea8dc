/// @file
/// A line on the terminal that tells how far the work is. In a pipe or a file it says nothing.
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

    /// A bar, once the work takes long enough for someone to wonder.
    void show(const QString &work, qint64 done, qint64 total);

    /// A line of its own words, at once.
    void show(const QString &line);

    /// Takes the line away.
    void clear();

private:
    void write(const QString &line);

    bool m_onTerminal;
    bool m_shown = false;
    qint64 m_lastShown = 0;
    QElapsedTimer m_running;
};

#endif
