/// @file
/// The channels of InkML traces that hold an ink point, and a trace's text as values.
#ifndef INKMLCHANNELS_H
#define INKMLCHANNELS_H

#include "pointfields.h"

#include <QString>

#include <vector>

struct InkmlChannel
{
    Field field;
    const char *name;
    const char *type;
    const char *units; ///< null for none
    bool isRequired;
};

inline constexpr InkmlChannel kInkmlChannels[] = {
    {Field::X, "X", "integer", "dev", true},
    {Field::Y, "Y", "integer", "dev", true},
    {Field::Pressure, "F", "integer", "dev", true},
    {Field::Tick, "T", "integer", "ms", true},
    {Field::StrokeEnd, "S", "boolean", nullptr, false},
    {Field::Time, "clock", "integer", "s", false},
};

/// Reads a trace's values: as they are, as first (') or second (") differences, or repeated (*).
class InkmlTrace
{
public:
    /// The channels in the order of the trace format; null for one that is dropped.
    InkmlTrace(const QString &text, const std::vector<const InkmlChannel *> &channels);

    /// The next point; false after the last one. Throws a QString that says what is wrong.
    bool next(POINTDATA &point);

    qint64 points() const { return m_points; }

private:
    struct State
    {
        QByteArray text; ///< the value before
        qint64 value = 0;
        qint64 velocity = 0;
        QChar prefix = '!';
    };

    void skipBlanks();
    bool takeValue(const InkmlChannel *channel, State &state, POINTDATA &point);
    static bool takeNumber(State &state, const QByteArray &text);
    QString at(const QString &what) const;

    QString m_text;
    const std::vector<const InkmlChannel *> &m_channels;
    std::vector<State> m_states;
    int m_place = 0;
    qint64 m_points = 0;
};

#endif
