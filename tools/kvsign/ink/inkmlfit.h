/// @file
/// How the numbers of another program's InkML become those of a record, which are whole and have 16 bits.
#ifndef INKMLFIT_H
#define INKMLFIT_H

#include "inkmlchannels.h"

#include <QString>

class QIODevice;
struct InkmlTraceText;
struct InkmlValue;

/// Numbers that fit into a record stay as they are. Lengths with a unit become hundredths of a millimetre. X and Y with
/// decimals are multiplied by a power of ten as large as fits; those that are too large are moved to 0 and, if need be,
/// divided by one. Values that grow upwards or to the left are mirrored. Pressures up to 1 become ones up to 2048.
class InkmlFit
{
public:
    InkmlFit() = default;

    /// Reads the whole document from the device's position to find the ranges; of kvsign's own documents only the first
    /// trace.
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
