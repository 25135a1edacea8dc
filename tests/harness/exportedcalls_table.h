/// @file
/// A row for every exported function that takes a device type: a call with valid arguments, its enter line, and its
/// answers to a wrong device type and without an instance.
#ifndef EXPORTEDCALLS_TABLE_H
#define EXPORTEDCALLS_TABLE_H

#include "families.h"
#include "logfile.h"

#include <functional>
#include <string>
#include <vector>

/// Kind of result. It determines the answer to a wrong device type.
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
    std::string leaveWithout; ///< leave line; "*" stands for a result's name that is not prescribed
    std::string wrongTypeLeave; ///< empty: the one of its kind

    std::string name() const { return family->prefix + function; }
    std::string key() const { return name() + "()"; }
    std::string enterText(int deviceType) const;
    std::string wrongTypeText() const;
    long wrongTypeResult() const { return kind == Kind::Int ? ARI_INVALID_PARAMETERS : 0; }
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

/// Whether the texts are equal, if "*" in the pattern stands for one identifier.
bool matches(const std::string &text, const std::string &pattern);

#endif
