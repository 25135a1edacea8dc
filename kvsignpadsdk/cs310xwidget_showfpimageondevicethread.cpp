#include "cs310xwidget_showfpimageondevicethread.h"

#include "cs310xsignwidget.h"
#include "fingerprint.h"

namespace {

constexpr const char *kWidgetThreadScope = "CS310XWidget_ShowFPImageOnDeviceThread::";

} // namespace

CS310XWidget_ShowFPImageOnDeviceThread::CS310XWidget_ShowFPImageOnDeviceThread(void *pSignWidget)
    : m_pSignWidget(pSignWidget)
{
    static constexpr logging::Key key{kWidgetThreadScope, "CS310XWidget_ShowFPImageOnDeviceThread()"};
    KV_LOG_INSIDE_THREAD(key, "<%ld>-enter, m_pSignWidget=%lx", logging::address(m_pSignWidget));
}

void CS310XWidget_ShowFPImageOnDeviceThread::run()
{
    static constexpr logging::Key key{kWidgetThreadScope, "run()"};
    fingerprint::display(*static_cast<CS310XSignWidget *>(m_pSignWidget), key);
}
