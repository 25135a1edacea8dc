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
    kNoPad = 5,
    kUnplugged = 6
};

struct ExitCodeRow
{
    ExitCode code;
    const char *meaning;
    const char *result; ///< in JSON
};

inline constexpr ExitCodeRow kExitCodes[] = {
    {kDone, "done", "done"},
    {kFailed, "it failed; standard error says why", "failed"},
    {kUsage, "the command line cannot be understood", "failed"},
    {kCancelled, "cancelled, by the signer or by an interruption", "cancelled"},
    {kTimedOut, "nobody confirmed in time", "timed-out"},
    {kNoPad, "no pad", "failed"},
    {kUnplugged, "the pad was unplugged while it was signed on", "unplugged"},
};

#endif
