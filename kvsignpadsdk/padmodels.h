/// @file
/// What differs between the instance classes, one row for each. What differs between models is in modelrows.h, and a
/// member that only one class has (place and image of a fingerprint, the office canvas) is in that class's source. Code
/// asks for a difference by its name, never for a class or a model. It asks for `host` only where being a widget is the
/// reason: repaints, events, Qt's ownership, other parameters of a member.
#ifndef PADMODELS_H
#define PADMODELS_H

#include "modelrows.h"

enum class Host
{
    Widget,
    Headless
};

/// Above which raw pressure a move is dropped.
enum class MoveLimit
{
    None,
    OwnMaximum,
    Fixed2048
};

/// Which tap means that the pad has cleared its own screen.
enum class TapMark
{
    Cancel,
    ConfirmOrCancel
};

/// What only some classes do. Readers of logs know each class's lines, so none may change.
enum Trait : unsigned
{
    NoTrait = 0,
    PushesLive = 1U << 0, ///< gives the whole signature to a receiver after every pen movement
    LogsPushReceiver = 1U << 1, ///< logs the receiver's address when it is set
    LogsMapping = 1U << 2, ///< logs how each packet is mapped to the canvas
    LogsSvgFileClosed = 1U << 3,
    LogsScreenClear = 1U << 4, ///< logs before and after the driver clears the screen
    LogsFingerprintMerge = 1U << 5, ///< logs before the display thread merges
    ClearsFingerprintPlaceFirst = 1U << 6, ///< ClearDeviceContent clears the place first instead of last
    CutsTextsToFingerprint = 1U << 7 ///< images of a fingerprint alone show its rectangle alone
};

constexpr Trait operator|(Trait one, Trait other)
{
    return static_cast<Trait>(static_cast<unsigned>(one) | static_cast<unsigned>(other));
}

/// What holds for one instance class.
struct PadRow
{
    const char *scope; ///< head of the class's log keys
    const char *constructor; ///< log key of the constructor, without the scope
    const char *penPackets; ///< log key of the member that takes pen packets, without the scope
    const ModelRow &model;
    Host host;
    MoveLimit moveLimit;
    TapMark tapMark;
    const char *inkCountLeaveKey; ///< function that the leave line of GetTotalInkPointsNumber names
    Trait traits;

    constexpr bool has(Trait trait) const { return (traits & trait) != 0; }
};

namespace padrows {

inline constexpr const char *kSlippedKey = "SetSignPadEventCallback()";
inline constexpr const char *kOwnKey = "GetTotalInkPointsNumber()";

// class, constructor, pen packets, model, host, moves dropped above, tap mark, ink count leaves as, traits
inline constexpr PadRow kS210Widget{"CS210SignWidget::", "CS210SignWidget()", "RxS210SignPadRawData()", //
    kS210, Host::Widget, MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, PushesLive};
inline constexpr PadRow kS210Obj{"CS210SignObj::", "CS210SignObj()", "RxS210SignPadRawData()", //
    kS210, Host::Headless, MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, PushesLive | LogsPushReceiver};
inline constexpr PadRow kS300Widget{"CS300SignWidget::", "CS300SignWidget()", "RxS300SignPadRawData()", //
    kS300, Host::Widget, MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, NoTrait};
inline constexpr PadRow kS300Obj{"CS300SignObj::", "CS300SignObj()", "RxS300SignPadRawData()", //
    kS300, Host::Headless, MoveLimit::None, TapMark::Cancel, kSlippedKey, LogsSvgFileClosed};
inline constexpr PadRow kS310XWidget{"CS310XSignWidget::", "CS310XSignWidget()", "RxS310XSignPadRawData()", //
    kS310X, Host::Widget, MoveLimit::Fixed2048, TapMark::Cancel, kSlippedKey,
    LogsMapping | ClearsFingerprintPlaceFirst | CutsTextsToFingerprint};
inline constexpr PadRow kS310XObj{"CS310XSignObj::", "CS310XSignObj()", "RxS310XSignPadRawData()", //
    kS310X, Host::Headless, MoveLimit::None, TapMark::Cancel, kSlippedKey, LogsSvgFileClosed | LogsFingerprintMerge};
inline constexpr PadRow kR800Widget{"CR800SignWidget::", "CR800SignWidget()", "RxR800SignPadRawData()", //
    kR800, Host::Widget, MoveLimit::OwnMaximum, TapMark::ConfirmOrCancel, kOwnKey, LogsScreenClear};
inline constexpr PadRow kR800Obj{"CR800SignObj::", "CR800SignObj()", "RxR800SignPadRawData()", //
    kR800, Host::Headless, MoveLimit::None, TapMark::Cancel, kSlippedKey, LogsSvgFileClosed};
inline constexpr PadRow kM450Widget{"CM450SignWidget::", "CM450SignWidget()", "RxM450SignPadRawData()", //
    kM450, Host::Widget, MoveLimit::OwnMaximum, TapMark::ConfirmOrCancel, kOwnKey, LogsScreenClear};
inline constexpr PadRow kM450Obj{"CM450SignObj::", "CM450SignObj()", "RxM450SignPadRawData()", //
    kM450, Host::Headless, MoveLimit::None, TapMark::Cancel, kSlippedKey, LogsSvgFileClosed};

} // namespace padrows

#endif
