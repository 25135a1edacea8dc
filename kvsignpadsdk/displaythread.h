/// @file
/// Starts the S310X's display threads, which have no event loop and no use for one.
#ifndef DISPLAYTHREAD_H
#define DISPLAYTHREAD_H

#include "LogFileUtil.h"

#include <QThread>

#include <memory>

namespace displaythread {

/// Starts the thread without the event dispatcher that Qt would make for it: that needs file descriptors, and ends the
/// process when there are none left. When the system has no thread to give, logs that and throws std::system_error.
void start(QThread &thread, const logging::Key &key);

template <class Thread>
Thread *started(std::unique_ptr<Thread> thread, const logging::Key &key)
{
    start(*thread, key);
    return thread.release();
}

} // namespace displaythread

#endif
