/// @file
/// Shows new fingerprints on the pad's screen, off the driver's thread, for the headless host.
#ifndef CS310XOBJ_SHOWFPIMAGEONDEVICETHREAD_H
#define CS310XOBJ_SHOWFPIMAGEONDEVICETHREAD_H

#include <QThread>

class CS310XObj_ShowFPImageOnDeviceThread : public QThread
{
public:
    /// The instance is a CS310XSignObj; it outlives the thread.
    explicit CS310XObj_ShowFPImageOnDeviceThread(void *pSignObj);

    void run() override;

    void *m_pSignObj;
};

#endif
