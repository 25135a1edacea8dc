/// @file
/// Where widgets can be had. Qt ends a process that makes one without a QApplication.
#ifndef WIDGETTHREAD_H
#define WIDGETTHREAD_H

#include "contained.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace widgetthread {

/// Null before the QApplication is made and after it is gone; widgets may outlive it.
inline QApplication *application()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance());
}

/// Whether this thread of this process may create widgets.
inline bool canHaveWidgets()
{
    return application() != nullptr && application()->thread() == QThread::currentThread();
}

/// Whether it may create one in this widget.
inline bool canHaveChildren(const QWidget &parent)
{
    return canHaveWidgets() && parent.thread() == QThread::currentThread();
}

/// Ends a widget; the event loop deletes it. Without the application there is nothing on the screen to be hidden, and
/// hiding would need it.
inline void hideAndDeleteLater(QWidget &widget)
{
    if (application() != nullptr)
        contained::run([&widget] { widget.hide(); });
    contained::run([&widget] { widget.deleteLater(); });
}

} // namespace widgetthread

#endif
