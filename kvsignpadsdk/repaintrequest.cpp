#include "repaintrequest.h"

#include <QThread>
#include <QWidget>

void RepaintRequest::make(QWidget &widget)
{
    if (QThread::currentThread() == widget.thread())
        widget.update();
    else if (!m_pending.exchange(true))
        QMetaObject::invokeMethod(&widget, "update", Qt::QueuedConnection);
}

void RepaintRequest::letPaint() const
{
    for (int i = 0; i < 50 && m_waiting.load(); ++i)
        QThread::usleep(100);
}
