/// @file
/// Who may go further after the head of the request: the rules alone, without a socket.
#ifndef ADMISSION_H
#define ADMISSION_H

#include "requesthead.h"

#include <QByteArray>
#include <QSet>

namespace bridge {

inline constexpr char kSubprotocol[] = "kvsign.v1";
inline constexpr char kTokenPrefix[] = "kvsign.token.";

/// Why somebody was turned away: what the journal counts.
enum class Refusal
{
    Malformed,
    Slow,
    TooMany,
    OtherUser,
    Method,
    Body,
    ForeignHost,
    UnknownPath,
    BadUpgrade,
    NoSubprotocol,
    WrongToken,
    MissingOrigin,
    NullOrigin,
    ForeignOrigin,
    CrossSite,
    Flood,
    LargeMessage,
    BinaryMessage,
    BadMessage,
    Stalled,
    Idle,
    Count
};

/// "foreign origin"
const char *nameOf(Refusal refusal);

struct AdmissionRules
{
    quint16 port = 0;
    QByteArray token; ///< in lower-case hexadecimal; empty: no token opens anything
    QSet<QByteArray> origins;
    bool servesPages = false; ///< the example pages, for --demo
};

struct Admission
{
    enum Kind
    {
        Refused,
        Hello, ///< the answer to GET /hello
        Page, ///< one of the example pages
        Upgrade ///< a WebSocket
    };
    Kind kind = Refused;
    Refusal refusal = Refusal::Malformed; ///< of one that is refused
    QByteArray origin; ///< checked; empty for one that comes with the token, or from no page
    bool hasToken = false;
};

/// Looks at a complete head. Pure; any thread.
Admission admit(const RequestHead &head, const AdmissionRules &rules);

} // namespace bridge

#endif
