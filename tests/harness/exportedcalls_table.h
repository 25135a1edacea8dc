/// @file
/// Every exported function that takes a device type, as a row: how to call it with good arguments, what its enter line
/// says, what it answers to a wrong device type and without an instance.
#ifndef EXPORTEDCALLS_TABLE_H
#define EXPORTEDCALLS_TABLE_H

#include "families.h"
#include "logfile.h"

#include <functional>
#include <string>
#include <vector>

/// Kind of result, which decides the answer to a wrong device type.
enum class Kind
{
    Bool,
    Int,
    Pointer,
    Void
};

struct ExportedCall
{
    const Family *family;
    std::string function; ///< without the family's prefix
    Kind kind;
    std::function<long(int deviceType)> call; ///< pointers and bools as numbers, void as 0
    std::string enter; ///< with # for the device type
    long withoutInstance;
    std::string leaveWithout; ///< after "leave"; where no name of the result is prescribed, "*" stands for it
    std::string wrongTypeLeave; ///< empty: as its kind says

    std::string name() const { return family->prefix + function; }
    std::string key() const { return name() + "()"; }
    std::string enterText(int deviceType) const;
    std::string wrongTypeText() const;
    long wrongTypeResult() const { return kind == Kind::Int ? ARI_INVALID_PARAMETERS : 0; }
};

/// All functions of a family but AboutBox. InitialDevice and UnInitialDevice come first.
std::vector<ExportedCall> exportedCalls(const Family &family);

/// As "%lx" prints it.
std::string hex(unsigned long value);
std::string hex(const void *pointer);

/// The buffers that the rows' calls pass; nothing may write to them when a call is refused.
struct CallBuffers
{
    char text[64];
    wchar_t path[32];
    INKPOINTDATA point;
};
extern CallBuffers callBuffers;
CallBuffers freshCallBuffers();

/// The first differs from the second only where the second has a "*": one identifier.
bool matches(const std::string &text, const std::string &pattern);

#endif
