#include "inkmlchannels.h"

#include <QXmlStreamAttributes>

#include <algorithm>

namespace {

struct Unit
{
    const char *name;
    double factor;
};

/// The standard's units of length in hundredths of a millimetre.
constexpr Unit kLengths[] = {{"m", 100000}, {"cm", 1000}, {"mm", 100}, {"um", 0.1}, {"in", 2540}, {"pt", 2540 / 72.0},
    {"pc", 2540 / 6.0}, {"himetric", 1}};

/// Units of time in milliseconds.
constexpr Unit kTimes[] = {{"s", 1000}, {"ms", 1}, {"us", 0.001}, {"ns", 0.000001}, {"min", 60000}, {"h", 3600000}};

template <size_t count>
const Unit *find(const Unit (&units)[count], const QString &name)
{
    const auto *found = std::find_if(units, units + count, [&](const Unit &unit) { return name == unit.name; });
    return found == units + count ? nullptr : found;
}

bool isLength(const std::optional<Field> &field)
{
    return field == Field::X || field == Field::Y;
}

void takeUnits(InkmlColumn &column, const QString &units)
{
    if (isLength(column.field)) {
        const Unit *const unit = find(kLengths, units);
        column.factor = unit != nullptr ? unit->factor : 1;
        column.isPhysical = unit != nullptr;
    }
    if (column.field == Field::Tick) {
        const Unit *const unit = find(kTimes, units);
        column.factor = unit != nullptr ? unit->factor : 1;
    }
    if (column.field == Field::Pressure && units == "%")
        column.factor = 2048 / 100.0; // percent of the largest pressure of most pads
}

} // namespace

bool InkmlFormat::has(Field field) const
{
    return std::any_of(
        columns.begin(), columns.end(), [field](const InkmlColumn &column) { return column.field == field; });
}

InkmlFormat InkmlFormat::plain()
{
    InkmlFormat format;
    for (const Field field : {Field::X, Field::Y}) {
        InkmlColumn column;
        column.name = field == Field::X ? "X" : "Y";
        column.field = field;
        format.columns.push_back(column);
    }
    format.regular = format.columns.size();
    return format;
}

InkmlColumn inkmlColumn(const QXmlStreamAttributes &attributes)
{
    InkmlColumn column;
    column.name = attributes.value("name").toString();
    if (column.name.isEmpty())
        throw QString("a channel has no name");
    for (const InkmlChannel &channel : kInkmlChannels) {
        if (column.name == channel.name)
            column.field = channel.field;
    }
    takeUnits(column, attributes.value("units").toString());
    column.isReversed = isLength(column.field) && attributes.value("orientation") == "-ve";
    column.respectTo = attributes.value("respectTo").toString().section('#', -1);
    return column;
}
