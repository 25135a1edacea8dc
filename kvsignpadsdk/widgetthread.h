/// @file
/// Whether widgets can be created here. Qt aborts a process that creates one without a QApplication.
#ifndef WIDGETTHREAD_H
#define WIDGETTHREAD_H

#include "contained.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace widgetthread {

/// Null before the QApplication exists and after its end. Widgets may outlive it.
inline QApplication *application()
{
    return qobject_cast<QApplication *>(QCoreApplication::instance());
}

/// Whether this thread of this process may create widgets.
inline bool canHaveWidgets()
{
    return application() != nullptr && application()->thread() == QThread::currentThread();
}

/// Whether this thread may create children of this widget.
inline bool canHaveChildren(const QWidget &parent)
{
    return canHaveWidgets() && parent.thread() == QThread::currentThread();
}

/// Hides a widget and leaves its deletion to the event loop. Without the QApplication nothing is on the screen, and
/// hide() would need it.
inline void hideAndDeleteLater(QWidget &widget)
{
    if (application() != nullptr)
        contained::run([&widget] { widget.hide(); });
    contained::run([&widget] { widget.deleteLater(); });
}

} // namespace widgetthread

#endif
