/// @file
/// Converts the numbers of another program's InkML to those of a record, which are whole and have 16 bits.
#ifndef INKMLFIT_H
#define INKMLFIT_H

#include "inkmlchannels.h"

#include <QString>

class QIODevice;
struct InkmlTraceText;
struct InkmlValue;

/// Numbers that fit into a record stay as they are. Lengths with a unit become hundredths of a millimetre. X and Y with
/// decimals are multiplied by the largest power of ten with which they still fit. X and Y that are too large are moved
/// to begin at 0 and, if that is not enough, divided by a power of ten. Values that grow upwards or to the left are
/// mirrored. Pressures from 0 to 1 become 0 to 2048.
class InkmlFit
{
public:
    InkmlFit() = default;

    /// Reads the whole document from the device's position to find the ranges. Of a document that kvsign wrote, it
    /// reads only the first trace.
    InkmlFit(QIODevice &device, const QString &name);

    /// A field's value in a record.
    long double of(const InkmlTraceText &trace, const InkmlColumn &column, long double value) const;

private:
    /// What values a field has.
    struct Range
    {
        long double least = 0;
        long double most = 0;
        bool hasValues = false;
        bool hasDecimals = false;
        bool isPhysical = false;
        bool isReversed = false;

        void add(long double value, const InkmlColumn &column);
        long double reach() const;
    };

    struct Change
    {
        long double shift = 0;
        long double factor = 1;
    };

    void look(const InkmlTraceText &trace);
    void decide();
    void decideLengths();
    void mirror(Field field);
    Change &change(Field field) { return m_changes[static_cast<int>(field)]; }

    Range m_ranges[kFieldCount];
    Change m_changes[kFieldCount];
};

#endif
