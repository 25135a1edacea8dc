/// @file
/// Every difference between the pads: five model rows, ten pad rows. Behaviour asks for a difference by its name.
#ifndef PADMODELS_H
#define PADMODELS_H

#include "kvsignpadsdk_global.h"

/// Size of the fingerprint sensor's image, one grey byte a pixel.
inline constexpr int kFingerprintWidth = 208;
inline constexpr int kFingerprintHeight = 288;

/// A version text that begins with `text` names a pad of the model, with this largest pressure.
struct VersionPrefix
{
    const char *text;
    int maxPressure;
};

/// How the pen's width follows from the width level.
enum class WidthRule
{
    FixedDivisor, ///< level / 306 per unit of pressure; without pressure: the level
    OwnMaximum ///< level * 3 at the pad's own largest pressure; without pressure: level * 3
};

/// What holds for a pad, however it is shown.
struct ModelRow
{
    int deviceType;
    const char *product;
    int rawOffsetX; ///< raw x at the left edge of the writing area
    int rawOffsetY; ///< raw y at its top edge
    int rawSpanX; ///< size of the writing area in raw units
    int rawSpanY;
    int maxPressure; ///< until the version text says otherwise
    WidthRule widthRule;
    bool hasScreen; ///< a screen to switch, pen and secure identifiers, version display, pen style in the pad
    bool hasFingerprint;
    VersionPrefix versions[8]; ///< in the order of testing, ended by a null text
};

inline constexpr ModelRow kS210{KVS210_DEVICE, "S210", 160, 220, 2360, 1430, 2048, WidthRule::FixedDivisor, true, false,
    {{"KVT120", 1024}, {"KVS210L1", 1024}, {"KVT140L1", 1024}, {"KVS190", 1024}, {"KVN230", 1024}, {"KVS210", 2048},
        {"KVT14", 2048}}};
inline constexpr ModelRow kS300{
    KVS300_DEVICE, "S300", 200, 200, 2300, 1300, 2048, WidthRule::FixedDivisor, true, false, {{"KVS300", 2048}}};
inline constexpr ModelRow kS310X{
    KVS310X_DEVICE, "S310X", 2050, 1750, 21170, 11490, 2048, WidthRule::FixedDivisor, true, true, {{"KVS310X", 2048}}};
inline constexpr ModelRow kR800{
    KVR800_DEVICE, "R800", 550, 180, 29870, 20120, 8192, WidthRule::OwnMaximum, false, false, {{"KVR800", 8192}}};
inline constexpr ModelRow kM450{
    KVM450_DEVICE, "M450", 550, 180, 29870, 20120, 8192, WidthRule::OwnMaximum, false, false, {{"KVM450", 8192}}};

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

/// Which tap marks that the pad has cleared its own screen.
enum class TapMark
{
    Cancel,
    ConfirmOrCancel
};

/// What holds for one of the ten instance classes.
struct PadRow
{
    const char *scope; ///< head of the class's log keys
    const char *constructor; ///< log key of the constructor, without the scope
    const ModelRow &model;
    Host host;
    MoveLimit moveLimit;
    TapMark tapMark;
    const char *inkCountLeaveKey; ///< function that the leave line of GetTotalInkPointsNumber names
    bool logsMapping;
    bool logsSvgFileClosed;
};

namespace padrows {

inline constexpr const char *kSlippedKey = "SetSignPadEventCallback()";
inline constexpr const char *kOwnKey = "GetTotalInkPointsNumber()";

// class, constructor, model, host, moves dropped above, tap mark, ink count leaves as, logs: mapping, SVG file closed
inline constexpr PadRow kS210Widget{"CS210SignWidget::", "CS210SignWidget()", kS210, Host::Widget,
    MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, false, false};
inline constexpr PadRow kS210Obj{"CS210SignObj::", "CS210SignObj()", kS210, Host::Headless, //
    MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, false, false};
inline constexpr PadRow kS300Widget{"CS300SignWidget::", "CS300SignWidget()", kS300, Host::Widget,
    MoveLimit::OwnMaximum, TapMark::Cancel, kSlippedKey, false, false};
inline constexpr PadRow kS300Obj{"CS300SignObj::", "CS300SignObj()", kS300, Host::Headless, //
    MoveLimit::None, TapMark::Cancel, kSlippedKey, false, true};
inline constexpr PadRow kS310XWidget{"CS310XSignWidget::", "CS310XSignWidget()", kS310X, Host::Widget,
    MoveLimit::Fixed2048, TapMark::Cancel, kSlippedKey, true, false};
inline constexpr PadRow kS310XObj{"CS310XSignObj::", "CS310XSignObj()", kS310X, Host::Headless, //
    MoveLimit::None, TapMark::Cancel, kSlippedKey, false, true};
inline constexpr PadRow kR800Widget{"CR800SignWidget::", "CR800SignWidget()", kR800, Host::Widget,
    MoveLimit::OwnMaximum, TapMark::ConfirmOrCancel, kOwnKey, false, false};
inline constexpr PadRow kR800Obj{"CR800SignObj::", "CR800SignObj()", kR800, Host::Headless, //
    MoveLimit::None, TapMark::Cancel, kSlippedKey, false, true};
inline constexpr PadRow kM450Widget{"CM450SignWidget::", "CM450SignWidget()", kM450, Host::Widget,
    MoveLimit::OwnMaximum, TapMark::ConfirmOrCancel, kOwnKey, false, false};
inline constexpr PadRow kM450Obj{"CM450SignObj::", "CM450SignObj()", kM450, Host::Headless, //
    MoveLimit::None, TapMark::Cancel, kSlippedKey, false, true};

} // namespace padrows

#endif
