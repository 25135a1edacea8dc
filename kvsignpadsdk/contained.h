/// @file
/// Calls into the driver, Qt and callers' receivers, whose exceptions must not escape. Thread cancellation must: glibc
/// implements it as an exception that aborts the process when someone swallows it.
#ifndef CONTAINED_H
#define CONTAINED_H

#include <cxxabi.h>

namespace contained {

/// The call's result, or `otherwise` when it throws. Not sanitized: the exception of a cancellation has no object, and
/// the sanitizer would report a null reference.
template <class Result, class Call>
__attribute__((no_sanitize("undefined"))) Result call(Result otherwise, Call &&call)
{
    try {
        return call();
    } catch (const abi::__forced_unwind &) { // not just catch (...): thread cancellation must pass
        throw;
    } catch (...) {
        return otherwise;
    }
}

/// The same for calls whose result does not matter. Returns false when the call throws.
template <class Call>
bool run(Call &&call)
{
    return contained::call(false, [&] {
        call();
        return true;
    });
}

} // namespace contained

#endif
