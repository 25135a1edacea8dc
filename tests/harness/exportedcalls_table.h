/// @file
/// A row for every exported function that takes a device type: a call with valid arguments, its enter line, and its
/// answers to a wrong device type and without an instance.
#ifndef EXPORTEDCALLS_TABLE_H
#define EXPORTEDCALLS_TABLE_H

#include "families.h"
#include "logfile.h"

#include <string>
#include <vector>

// Which families have a function.
inline bool onAll(const Family &)
{
    return true;
}
inline bool onScreens(const Family &family)
{
    return family.hasScreen;
}
inline bool onS210(const Family &family)
{
    return family.type == KVS210_DEVICE;
}
inline bool onS310X(const Family &family)
{
    return family.type == KVS310X_DEVICE;
}

struct ExportedCall
{
    const Family *family;
    std::string function; ///< without the family's prefix
    long (*withValidArguments)(const Family &, int deviceType);
    std::string enter; ///< with # for the device type
    long withoutInstance;
    std::string leaveWithout; ///< leave line; "*" stands for a result's name that is not prescribed
    long wrongTypeResult;
    std::string wrongTypeLeave;

    /// Pointers and bools as numbers, void as 0.
    long call(int deviceType) const { return withValidArguments(*family, deviceType); }
    std::string name() const { return family->prefix + function; }
    std::string key() const { return name() + "()"; }
    std::string enterText(int deviceType) const;
};

/// All functions of a family but AboutBox. InitialDevice and UnInitialDevice come first.
std::vector<ExportedCall> exportedCalls(const Family &family);

/// What "%lx" prints.
std::string hex(unsigned long value);
std::string hex(const void *pointer);

/// The buffers that the calls pass. A refused call must not write to them.
struct CallBuffers
{
    char text[64];
    wchar_t path[32];
    INKPOINTDATA point;
};
extern CallBuffers callBuffers;
CallBuffers freshCallBuffers();

/// The path's address as the log shows it: printed with "%x", in 32 bits.
std::string pathAsLogged();

/// Whether the texts are equal, if "*" in the pattern stands for one identifier.
bool matches(const std::string &text, const std::string &pattern);

#endif
