/// @file
/// The channels of InkML that hold parts of an ink point, and trace formats: the channels of a trace's values.
#ifndef INKMLCHANNELS_H
#define INKMLCHANNELS_H

#include "pointfields.h"

#include <QString>

#include <optional>
#include <vector>

class QXmlStreamAttributes;

/// The channels that kvsign writes, in their order.
struct InkmlChannel
{
    Field field;
    const char *name;
    const char *type;
    const char *units; ///< null for none
};

inline constexpr InkmlChannel kInkmlChannels[] = {
    {Field::X, "X", "integer", "dev"},
    {Field::Y, "Y", "integer", "dev"},
    {Field::Pressure, "F", "integer", "dev"},
    {Field::Tick, "T", "integer", "ms"},
    {Field::StrokeEnd, "S", "boolean", nullptr},
    {Field::Time, "clock", "integer", "s"},
};

/// A channel of a trace format that is read.
struct InkmlColumn
{
    QString name;
    std::optional<Field> field; ///< none: its values are dropped
    double factor = 1; ///< from its units to hundredths of a millimetre, or milliseconds
    bool isPhysical = false; ///< it has a unit of length
    bool isReversed = false; ///< its values grow to the left or upwards
    QString respectTo; ///< the id of a timestamp, without the #; empty for none
};

/// First the regular channels, then the intermittent ones, which a point may leave out.
struct InkmlFormat
{
    std::vector<InkmlColumn> columns;
    size_t regular = 0;

    bool has(Field field) const;

    /// True for kvsign's own documents: they mark the ends of strokes, and their values are taken as they are.
    bool isOwn() const { return has(Field::StrokeEnd) && has(Field::Time); }

    /// The standard's format for documents that name none: X and Y.
    static InkmlFormat plain();
};

/// The column that a channel element's attributes describe. Throws a QString that says what is wrong.
InkmlColumn inkmlColumn(const QXmlStreamAttributes &attributes);

#endif
