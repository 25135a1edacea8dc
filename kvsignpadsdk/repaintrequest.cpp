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
