/// @file
/// The fields of an ink point as text: what the formats call them, which values a record can hold.
#ifndef POINTFIELDS_H
#define POINTFIELDS_H

#include <kvsignpadsdk_global.h>

#include <QByteArray>
#include <QString>

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

/// In the order in which they are written.
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

/// Takes the field from its text. Answers why it cannot be, or an empty text.
QString takeField(POINTDATA &point, Field field, const QByteArray &text);

#endif
