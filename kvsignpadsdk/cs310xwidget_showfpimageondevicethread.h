/// @file
/// Shows new fingerprints on the pad's screen, off the driver's thread, for the widget host.
#ifndef CS310XWIDGET_SHOWFPIMAGEONDEVICETHREAD_H
#define CS310XWIDGET_SHOWFPIMAGEONDEVICETHREAD_H

#include <QThread>

class CS310XWidget_ShowFPImageOnDeviceThread : public QThread
{
public:
    /// The instance is a CS310XSignWidget; it outlives the thread.
    explicit CS310XWidget_ShowFPImageOnDeviceThread(void *pSignWidget);

    void run() override;

    void *m_pSignWidget;
};

#endif
