/// @file
/// What is counted and written to the journal: reasons, never what somebody sent.
#ifndef JOURNAL_H
#define JOURNAL_H

#include "admission.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <array>

namespace bridge {

/// A reason is written when it comes up, and then at most every ten seconds with how often, so that nobody fills the
/// journal.
class Journal : public QObject
{
    Q_OBJECT

public:
    explicit Journal(QObject *parent = nullptr);

    void refused(Refusal why);
    int count(Refusal why) const { return m_counts[static_cast<std::size_t>(why)]; }

    /// A line of the bridge's own, such as "the pad is open".
    static void say(const QString &line);

private:
    void summarise();

    using Counts = std::array<int, static_cast<std::size_t>(Refusal::Count)>;
    Counts m_counts{};
    Counts m_written{};
    QTimer m_pause;
};

} // namespace bridge

#endif
