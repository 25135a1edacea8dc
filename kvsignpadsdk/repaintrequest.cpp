#include "repaintrequest.h"

#include <QThread>
#include <QWidget>

void RepaintRequest::make(QWidget &widget)
{
    if (QThread::currentThread() == widget.thread())
        widget.update();
    else if (!m_pending.exchange(true))
        post(widget);
}

void RepaintRequest::post(QWidget &widget)
{
    try {
        QMetaObject::invokeMethod(&widget, "update", Qt::QueuedConnection);
    } catch (...) {
        m_pending.store(false); // else the widget would never be painted again
        throw;
    }
}

void RepaintRequest::letPaint() const
{
    for (int i = 0; i < 50 && m_waiting.load(); ++i)
        QThread::usleep(100);
}
