/// @file
/// What the command's exit codes mean. The man page lists the same.
#ifndef EXITCODES_H
#define EXITCODES_H

enum ExitCode
{
    kDone = 0,
    kFailed = 1,
    kUsage = 2,
    kCancelled = 3,
    kTimedOut = 4,
    kNoPad = 5
};

struct ExitCodeRow
{
    ExitCode code;
    const char *meaning;
};

inline constexpr ExitCodeRow kExitCodes[] = {
    {kDone, "done"},
    {kFailed, "it failed; standard error says why"},
    {kUsage, "the command line cannot be understood"},
    {kCancelled, "cancelled, by the signer or by an interruption"},
    {kTimedOut, "nobody confirmed in time"},
    {kNoPad, "no pad"},
};

#endif
