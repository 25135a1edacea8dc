/// @file
/// Where widgets can be had. Qt ends a process that makes one without a QApplication.
#ifndef WIDGETTHREAD_H
#define WIDGETTHREAD_H

#include <QApplication>
#include <QThread>

namespace widgetthread {

/// Whether this thread of this process may create widgets.
inline bool canHaveWidgets()
{
    const auto *application = qobject_cast<QApplication *>(QCoreApplication::instance());
    return application != nullptr && application->thread() == QThread::currentThread();
}

} // namespace widgetthread

#endif
