/// @file
/// Starts the S310X's display threads, which have no event loop and no use for one.
#ifndef DISPLAYTHREAD_H
#define DISPLAYTHREAD_H

#include "LogFileUtil.h"

#include <QThread>

#include <memory>

namespace displaythread {

/// Starts the thread without Qt's own event dispatcher, which needs file descriptors and aborts the process when there
/// are none left. Logs and throws std::system_error when the system cannot create the thread.
void start(QThread &thread, const logging::Key &key);

template <class Thread>
Thread *started(std::unique_ptr<Thread> thread, const logging::Key &key)
{
    start(*thread, key);
    return thread.release();
}

} // namespace displaythread

#endif
