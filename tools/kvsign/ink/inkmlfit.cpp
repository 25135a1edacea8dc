#include "inkmlfit.h"

#include "../failure.h"
#include "../interruption.h"
#include "inkmldocument.h"
#include "inkmltrace.h"

#include <QIODevice>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

constexpr long double kMostOfRecord = std::numeric_limits<qint16>::max();
constexpr long double kLeastOfRecord = std::numeric_limits<qint16>::min();
constexpr long double kMostPressure = 2048;
constexpr long double kTen = 10;

/// Whether it has no decimals. Not by floor() alone: clang calls glibc's for a long double, which saves and restores
/// the whole state of the floating-point unit.
bool isWhole(long double value)
{
    const bool isSmall = std::abs(value) < 0x1p63L; // the first that a 64-bit integer cannot hold
    return value == (isSmall ? static_cast<long double>(static_cast<std::int64_t>(value)) : std::floor(value));
}

/// The value in a record's direction and units.
long double straight(const InkmlTraceText &trace, const InkmlColumn &column, long double value)
{
    // Multiply decimals as doubles: as a long double 0.0075 s would not become exactly 7.5 ms.
    long double number =
        isWhole(value) ? value * static_cast<long double>(column.factor) : static_cast<double>(value) * column.factor;
    if (column.field == Field::Y && !column.isPhysical)
        number *= trace.aspect;
    return column.isReversed ? -number : number;
}

} // namespace

void InkmlFit::Range::add(long double value, const InkmlColumn &column)
{
    least = hasValues ? std::min(least, value) : value;
    most = hasValues ? std::max(most, value) : value;
    hasValues = true;
    hasDecimals = hasDecimals || !isWhole(value);
    isPhysical = isPhysical || column.isPhysical;
    isReversed = isReversed || column.isReversed;
}

/// The largest magnitude.
long double InkmlFit::Range::reach() const
{
    return std::max(std::fabs(least), std::fabs(most));
}

InkmlFit::InkmlFit(QIODevice &device, const QString &name)
{
    const qint64 begin = device.pos();
    InkmlDocument document(device, name);
    InkmlTraceText trace;
    bool isOwn = false;
    while (!isOwn && document.next(trace)) {
        throwIfInterrupted();
        isOwn = trace.format->isOwn();
        try {
            if (!isOwn)
                look(trace);
        } catch (const QString &why) {
            throw document.broken(trace.line, "in the trace that begins there, " + why);
        }
    }
    if (!isOwn)
        decide();
    device.seek(begin);
}

void InkmlFit::look(const InkmlTraceText &trace)
{
    InkmlTrace points(trace.text, *trace.format);
    while (points.next()) {
        for (size_t i = 0; i < trace.format->columns.size(); ++i) {
            const InkmlColumn &column = trace.format->columns[i];
            const InkmlValue &value = points.values()[i];
            if (column.field.has_value() && value.isKnown && value.letter == 0)
                m_ranges[static_cast<int>(*column.field)].add(straight(trace, column, value.number), column);
        }
    }
}

void InkmlFit::decide()
{
    decideLengths();
    const Range &pressure = m_ranges[static_cast<int>(Field::Pressure)];
    if (pressure.hasDecimals && pressure.reach() <= 1)
        change(Field::Pressure).factor = kMostPressure;
    else if (pressure.reach() > kMostOfRecord)
        change(Field::Pressure).factor = kMostPressure / pressure.reach();
    change(Field::Tick).shift = std::max(-m_ranges[static_cast<int>(Field::Tick)].least, 0.0L);
}

/// One factor for X and Y; two would distort the signature.
void InkmlFit::decideLengths()
{
    long double reach = 0, side = 0;
    bool isTooFar = false, hasDecimals = false, isPhysical = false;
    for (const Field field : {Field::X, Field::Y}) {
        Range &range = m_ranges[static_cast<int>(field)];
        if (range.isReversed)
            mirror(field);
        reach = std::max(reach, range.reach());
        side = std::max(side, range.most - range.least);
        isTooFar = isTooFar || range.most > kMostOfRecord || range.least < kLeastOfRecord;
        hasDecimals = hasDecimals || range.hasDecimals;
        isPhysical = isPhysical || range.isPhysical;
    }
    long double factor = 1, most = isTooFar ? side : reach;
    for (; isTooFar && most > kMostOfRecord; most /= kTen)
        factor /= kTen;
    for (; hasDecimals && !isPhysical && most > 0 && most * kTen <= kMostOfRecord; most *= kTen)
        factor *= kTen;
    for (const Field field : {Field::X, Field::Y}) {
        if (isTooFar)
            change(field).shift -= m_ranges[static_cast<int>(field)].least;
        change(field).factor = factor;
    }
}

/// straight() has changed the sign of these values; this moves them back to their range. So the picture is mirrored
/// where it is.
void InkmlFit::mirror(Field field)
{
    Range &range = m_ranges[static_cast<int>(field)];
    change(field).shift = -(range.least + range.most);
    range.least += change(field).shift;
    range.most += change(field).shift;
}

long double InkmlFit::of(const InkmlTraceText &trace, const InkmlColumn &column, long double value) const
{
    const Change &change = m_changes[static_cast<int>(*column.field)];
    return (straight(trace, column, value) + change.shift) * change.factor;
}
