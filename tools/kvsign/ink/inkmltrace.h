/// @file
/// Reads a trace's text. Values stand there as they are, as first (') or second (") differences, as repeated (*) or as
/// unknown (?).
#ifndef INKMLTRACE_H
#define INKMLTRACE_H

#include "inkmlchannels.h"

#include <QByteArray>

#include <vector>

/// A channel's value at a point. Whole numbers of 64 bits are exact where a long double has as many.
struct InkmlValue
{
    long double number = 0;
    bool isKnown = false;
    char letter = 0; ///< T or F for a value that is not a number
};

class InkmlTrace
{
public:
    /// The format must outlive the trace.
    InkmlTrace(const QByteArray &text, const InkmlFormat &format);

    /// Reads the next point's values, one for each column; false after the last point. Throws a QString that says what
    /// is wrong.
    bool next();

    const std::vector<InkmlValue> &values() const { return m_values; }

    /// How many points have been read.
    qint64 points() const { return m_points; }

private:
    struct State
    {
        long double velocity = 0;
        char prefix = '!';
    };

    void skipBlanks();
    bool isAtEndOfPoint() const { return m_place == m_end || *m_place == ','; }
    void takeValue(size_t column);
    void takeLetter(InkmlValue &value);
    void takeNumber(size_t column);
    long double number();
    QString at(const QString &what) const;

    const QByteArray m_text;
    const InkmlFormat &m_format;
    const char *m_place;
    const char *const m_end;
    std::vector<State> m_states;
    std::vector<InkmlValue> m_values;
    qint64 m_points = 0;
};

#endif
