#include "outcome.h"

namespace bridge {

const char *nameOf(kv::Errc error)
{
    switch (error) {
    case kv::Errc::DriverNotFound:
    case kv::Errc::VersionMismatch:
        return "no-driver";
    case kv::Errc::PadNotFound:
    case kv::Errc::AlreadyOpen:
        return "no-pad";
    case kv::Errc::PadLost:
        return "lost";
    case kv::Errc::PadClosed:
        return "not-open";
    case kv::Errc::NotSupported:
        return "not-supported";
    case kv::Errc::NoInk:
        return "no-ink";
    case kv::Errc::NotSaved:
    case kv::Errc::CommandFailed:
        break;
    }
    return "failed";
}

Outcome failed(const char *error)
{
    Outcome outcome;
    outcome.error = error;
    return outcome;
}

} // namespace bridge
