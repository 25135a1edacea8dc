/// @file
/// Calls whose exceptions end here: of the driver, of Qt, of a caller's receiver. The cancellation of a thread, which
/// glibc carries out as an exception that must not be kept, passes.
#ifndef CONTAINED_H
#define CONTAINED_H

#include <cxxabi.h>

namespace contained {

/// The call's result, `otherwise` when it throws. A cancellation has no object, which a sanitizer takes for null.
template <class Result, class Call>
__attribute__((no_sanitize("undefined"))) Result call(Result otherwise, Call &&call)
{
    try {
        return call();
    } catch (const abi::__forced_unwind &) {
        throw;
    } catch (...) {
        return otherwise;
    }
}

/// The same for calls whose result does not matter; false when it throws.
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
