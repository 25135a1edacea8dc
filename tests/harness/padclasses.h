/// @file
/// The ten instance classes for typed tests, with a row of expectations for each.
#ifndef PADCLASSES_H
#define PADCLASSES_H

#include "cm450signobj.h"
#include "cm450signwidget.h"
#include "cr800signobj.h"
#include "cr800signwidget.h"
#include "cs210signobj.h"
#include "cs210signwidget.h"
#include "cs300signobj.h"
#include "cs300signwidget.h"
#include "cs310xsignobj.h"
#include "cs310xsignwidget.h"
#include "openpad.h"

#include <memory>
#include <type_traits>

/// What the constructors set, by model.
struct ModelExpectation
{
    const Family *family;
    int maxPressure;
    int offsetX;
    int offsetY;
    double spanX;
    double spanY;
    double pressureRatio;
};

template <class Pad>
inline constexpr bool isWidget = std::is_base_of_v<QWidget, Pad>;

template <class Pad>
struct PadTraits;

#define KV_PAD_TRAITS(Class, familyRow, screen, maxPressure, offsetX, offsetY, spanX, spanY, pressureRatio)            \
    template <>                                                                                                        \
    struct PadTraits<Class>                                                                                            \
    {                                                                                                                  \
        static constexpr const char *name = #Class;                                                                    \
        static constexpr bool hasScreen = screen;                                                                      \
        static ModelExpectation model()                                                                                \
        {                                                                                                              \
            return {&familyRow, maxPressure, offsetX, offsetY, spanX, spanY, pressureRatio};                           \
        }                                                                                                              \
    };

KV_PAD_TRAITS(CS210SignWidget, kS210Family, true, 2048, 160, 220, 2360.0, 1430.0, 3 / 306.0)
KV_PAD_TRAITS(CS210SignObj, kS210Family, true, 2048, 160, 220, 2360.0, 1430.0, 3 / 306.0)
KV_PAD_TRAITS(CS300SignWidget, kS300Family, true, 2048, 200, 200, 2300.0, 1300.0, 3 / 306.0)
KV_PAD_TRAITS(CS300SignObj, kS300Family, true, 2048, 200, 200, 2300.0, 1300.0, 3 / 306.0)
KV_PAD_TRAITS(CS310XSignWidget, kS310XFamily, true, 2048, 2050, 1750, 21170.0, 11490.0, 3 / 306.0)
KV_PAD_TRAITS(CS310XSignObj, kS310XFamily, true, 2048, 2050, 1750, 21170.0, 11490.0, 3 / 306.0)
KV_PAD_TRAITS(CR800SignWidget, kR800Family, false, 8192, 550, 180, 29870.0, 20120.0, 9 / 8192.0)
KV_PAD_TRAITS(CR800SignObj, kR800Family, false, 8192, 550, 180, 29870.0, 20120.0, 9 / 8192.0)
KV_PAD_TRAITS(CM450SignWidget, kM450Family, false, 8192, 550, 180, 29870.0, 20120.0, 9 / 8192.0)
KV_PAD_TRAITS(CM450SignObj, kM450Family, false, 8192, 550, 180, 29870.0, 20120.0, 9 / 8192.0)

using PadClasses = testing::Types<CS210SignWidget, CS210SignObj, CS300SignWidget, CS300SignObj, CS310XSignWidget,
    CS310XSignObj, CR800SignWidget, CR800SignObj, CM450SignWidget, CM450SignObj>;

struct PadClassNames
{
    template <class Pad>
    static std::string GetName(int)
    {
        return PadTraits<Pad>::name;
    }
};

template <class Pad>
inline constexpr bool isFingerprintPad = std::is_same_v<Pad, CS310XSignWidget> || std::is_same_v<Pad, CS310XSignObj>;

template <class Pad>
inline constexpr bool isLivePad = std::is_same_v<Pad, CS210SignWidget> || std::is_same_v<Pad, CS210SignObj>;

/// The two widgets whose last common field has a name of its own.
template <class Pad>
inline constexpr bool hasAreas = std::is_same_v<Pad, CR800SignWidget> || std::is_same_v<Pad, CM450SignWidget>;

/// A constructed instance: a headless one of the size, or a widget without a parent.
template <class Pad>
std::unique_ptr<Pad> constructed(int width, int height)
{
    if constexpr (isWidget<Pad>)
        return std::make_unique<Pad>(nullptr);
    else
        return std::make_unique<Pad>(width, height);
}

#endif
