/// @file
/// The fields of an ink point as text: what the formats call them, which values a record can hold.
#ifndef POINTFIELDS_H
#define POINTFIELDS_H

#include <kvsignpadsdk_global.h>

#include <QByteArray>
#include <QString>

#include <optional>

enum class Field
{
    X,
    Y,
    Pressure,
    StrokeEnd,
    Tick,
    Time
};

struct FieldRow
{
    Field field;
    const char *column; ///< in CSV
    const char *key; ///< in JSON
};

/// All fields, in the order in which they are written.
inline constexpr FieldRow kFields[] = {
    {Field::X, "x", "x"},
    {Field::Y, "y", "y"},
    {Field::Pressure, "pressure", "pressure"},
    {Field::StrokeEnd, "stroke_end", "strokeEnd"},
    {Field::Tick, "tick_ms", "tick"},
    {Field::Time, "time_s", "time"},
};

inline constexpr int kFieldCount = sizeof kFields / sizeof kFields[0];

/// Appends the field as a number; the stroke end as 0 or 1.
void appendField(QByteArray &text, const POINTDATA &point, Field field);

/// Takes the field from its text: whole numbers to the last digit, decimals and exponents rounded; 0, 1, true or false
/// for the stroke end. Returns an empty text, or the reason why it is refused.
QString takeField(POINTDATA &point, Field field, const QByteArray &text);

/// Takes the field from a number, rounded; the stroke end is true for all but 0.
QString setField(POINTDATA &point, Field field, long double value);

/// The text as a finite number. A number too small for a double becomes 0; for one that is too large the result is
/// empty and isTooLarge is set.
std::optional<double> decimalNumber(const QByteArray &text, bool &isTooLarge);

#endif
