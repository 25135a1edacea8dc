/// @file
/// InitialDevice, UnInitialDevice and the about functions, written once for all families.
#ifndef EXPORTEDLIFECYCLE_H
#define EXPORTEDLIFECYCLE_H

#include "aboutbox.h"
#include "contained.h"
#include "frame.h"
#include "widgetthread.h"

#include <QRect>
#include <QWidget>

#include <algorithm>

namespace exported {

/// Ends the open instance: a headless one is deleted at once, a widget later by the event loop. The library is closed
/// afterwards even if something fails on the way.
///
/// A forked child leaves both alone. The widget's window belongs to the parent's connection to the display, which two
/// processes cannot share. And if a thread of the parent was drawing on a headless canvas at the fork, Qt would warn of
/// a canvas that is deleted while it is painted, and the child would never return from that warning.
template <class Family>
void close()
{
    if (g_bUseSignObj) {
        auto *object = static_cast<typename Family::Obj *>(g_pSignWidget);
        contained::run([object] { object->Shutdown(); });
        g_pSignWidget = nullptr;
        g_bUseSignObj = false;
        if (object->m_internals.isOfThisProcess()) {
            delete object;
        } else {
            static typename Family::Obj *left = nullptr; // keeps it known to leak checkers
            left = object;
            static_cast<void>(left);
        }
    } else {
        auto *widget = static_cast<typename Family::Widget *>(g_pSignWidget);
        contained::run([widget] { widget->Shutdown(); });
        g_pSignWidget = nullptr;
        if (widget->m_internals.isOfThisProcess())
            widgetthread::hideAndDeleteLater(*widget);
    }
}

template <class Family>
int UnInitialDevice(int nDeviceType)
{
    static constexpr logging::Key key{Family::prefix, "UnInitialDevice()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d", nDeviceType);
    if (!isOurs<Family>(key, nDeviceType, "ARI_INVALID_PARAMETERS"))
        return ARI_INVALID_PARAMETERS;
    if (g_pSignWidget != nullptr)
        close<Family>();
    KV_LOG(key, "<%ld>-leave with ARI_SUCCESS...");
    return ARI_SUCCESS;
}

/// Where a widget is shown in its parent.
struct Geometry
{
    int x;
    int y;
    int width;
    int height;
};

/// The geometry limited to what Qt allows a widget, so that computing a corner cannot overflow an int.
inline QRect within(const Geometry &geometry)
{
    const auto place = [](int position) { return std::clamp(position, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); };
    const auto size = [](int length) { return std::clamp(length, 0, QWIDGETSIZE_MAX); };
    return {place(geometry.x), place(geometry.y), size(geometry.width), size(geometry.height)};
}

template <class Family>
bool openHeadless(const Geometry &geometry)
{
    auto *object = new typename Family::Obj(geometry.width, geometry.height);
    g_pSignWidget = object;
    return object->IsDeviceConnected();
}

template <class Family>
bool openWidget(QWidget *pParentWidget, const Geometry &geometry)
{
    auto *widget = new typename Family::Widget(pParentWidget);
    g_pSignWidget = widget;
    if (!widget->IsDeviceConnected())
        return false;
    widget->setGeometry(within(geometry));
    widget->show();
    return true;
}

/// Creates the instance and connects it; a failure leaves the library closed. A parent alone does not make it a widget:
/// g_bUseSignObj must be false too.
template <class Family>
bool open(QWidget *pParentWidget, const Geometry &geometry)
{
    const bool connected = contained::call(false, [&] {
        return pParentWidget != nullptr && !g_bUseSignObj ? openWidget<Family>(pParentWidget, geometry)
                                                          : openHeadless<Family>(geometry);
    });
    if (!connected) {
        UnInitialDevice<Family>(Family::deviceType);
        g_bUseSignObj = false; // UnInitialDevice leaves it alone when no instance could be made
    }
    return connected;
}

template <class Family>
bool InitialDevice(int nDeviceType, QWidget *pParentWidget, int nX, int nY, int nWidth, int nHeight)
{
    static constexpr logging::Key key{Family::prefix, "InitialDevice()"};
    KV_LOG(key, "<%ld>-Enter, nDeviceType=%d, pParentWidget=%lx, nX=%d, nY=%d, nWidth=%d, nHeight=%d", nDeviceType,
        logging::address(pParentWidget), nX, nY, nWidth, nHeight);
    if (!isOurs<Family>(key, nDeviceType, "false"))
        return false;
    // This comes before the check for an open instance: a call without a parent marks even an open widget as headless.
    if (pParentWidget == nullptr)
        g_bUseSignObj = true;
    if (g_pSignWidget != nullptr) {
        KV_LOG(key, "<%ld>-leave with true due to g_pSignWidget already created !");
        return true;
    }
    if (pParentWidget != nullptr && !g_bUseSignObj && !widgetthread::canHaveChildren(*pParentWidget)) {
        KV_LOG(key,
            "<%ld>-leave with false due to (qApp == nullptr) || (pParentWidget->thread() != QThread::currentThread()) !");
        return false;
    }
    const bool bRet = open<Family>(pParentWidget, {nX, nY, nWidth, nHeight});
    KV_LOG(key, "<%ld>-leave with bRet=%d !", bRet);
    return bRet;
}

template <class Family>
void AboutBox(QWidget *pParent)
{
    static constexpr logging::Key key{Family::prefix, "AboutBox()"};
    KV_LOG(key, "<%ld>-Enter...");
    contained::run([pParent] { aboutbox::show(pParent); });
    KV_LOG(key, "<%ld>-leave !");
}

template <class Family>
void GetAboutInfo(int nDeviceType, void *pOutput)
{
    static constexpr logging::Key key{Family::prefix, "GetAboutInfo()"};
    KV_LOG(key, "<%ld>-enter, nDeviceType=%d", nDeviceType);
    if (!isOurs<Family>(key, nDeviceType))
        return;
    if (pOutput == nullptr)
        return;
    aboutbox::writeText(static_cast<char *>(pOutput));
    KV_LOG(key, "<%ld>-leave !");
}

} // namespace exported

#endif
