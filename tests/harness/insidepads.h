/// @file
/// For tests that look inside the library: from a pad's row to its instance class.
#ifndef INSIDEPADS_H
#define INSIDEPADS_H

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
#include "openinstance.h"
#include "openpad.h"

#include <QResizeEvent>

#include <type_traits>

template <class Pad>
struct ClassOf
{
    using Type = Pad;
};

/// Calls visit(ClassOf<...>) with the instance class of the row.
template <class Visit>
void withClass(const PadCase &pad, Visit visit)
{
    const bool headless = pad.headless;
    switch (pad.family->type) {
    case KVS210_DEVICE:
        return headless ? visit(ClassOf<CS210SignObj>()) : visit(ClassOf<CS210SignWidget>());
    case KVS300_DEVICE:
        return headless ? visit(ClassOf<CS300SignObj>()) : visit(ClassOf<CS300SignWidget>());
    case KVS310X_DEVICE:
        return headless ? visit(ClassOf<CS310XSignObj>()) : visit(ClassOf<CS310XSignWidget>());
    case KVR800_DEVICE:
        return headless ? visit(ClassOf<CR800SignObj>()) : visit(ClassOf<CR800SignWidget>());
    default:
        return headless ? visit(ClassOf<CM450SignObj>()) : visit(ClassOf<CM450SignWidget>());
    }
}

/// Calls visit(instance) with the instance that is open, which must be of this row.
template <class Visit>
void withOpenInstance(const PadCase &pad, Visit visit)
{
    ASSERT_NE(g_pSignWidget, nullptr);
    withClass(pad, [&](auto kind) { visit(openinstance::as<typename decltype(kind)::Type>()); });
}

/// Calls visit(instance) with a new instance without a driver. A widget has this size.
template <class Visit>
void withNewInstance(const PadCase &pad, int width, int height, Visit visit)
{
    withClass(pad, [&](auto kind) {
        using Pad = typename decltype(kind)::Type;
        if constexpr (std::is_base_of_v<QWidget, Pad>) {
            Pad instance(nullptr);
            instance.resize(width, height);
            QResizeEvent resized(instance.size(), QSize());
            QCoreApplication::sendEvent(&instance, &resized);
            visit(instance);
            instance.Shutdown(); // frees what a test gave it, such as a point list
        } else {
            Pad instance(width, height);
            visit(instance);
            instance.Shutdown(); // frees what a test gave it, such as a point list
        }
    });
}

/// Whether a pad of this type has a screen, and with it the operations that go with one.
template <class Pad>
inline constexpr bool kHasScreen =
    std::is_base_of_v<CS210SignWidget,
        Pad> || std::is_base_of_v<CS210SignObj, Pad> || std::is_base_of_v<CS300SignWidget, Pad> || std::is_base_of_v<CS300SignObj, Pad> || std::is_base_of_v<CS310XSignWidget, Pad> || std::is_base_of_v<CS310XSignObj, Pad>;

template <class Pad>
inline constexpr bool kHasFingerprint =
    std::is_base_of_v<CS310XSignWidget, Pad> || std::is_base_of_v<CS310XSignObj, Pad>;

#endif
