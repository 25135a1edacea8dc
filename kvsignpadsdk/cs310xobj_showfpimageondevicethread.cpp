#include "cs310xobj_showfpimageondevicethread.h"

#include "cs310xsignobj.h"
#include "fingerprint.h"

namespace {

constexpr const char *kHeadlessThreadScope = "CS310XObj_ShowFPImageOnDeviceThread::";

} // namespace

CS310XObj_ShowFPImageOnDeviceThread::CS310XObj_ShowFPImageOnDeviceThread(void *pSignObj)
    : m_pSignObj(pSignObj)
{
    static constexpr logging::Key key{kHeadlessThreadScope, "CS310XObj_ShowFPImageOnDeviceThread()"};
    KV_LOG_INSIDE_THREAD(key, "<%ld>-enter, m_pSignObj=%lx", logging::address(m_pSignObj));
}

void CS310XObj_ShowFPImageOnDeviceThread::run()
{
    static constexpr logging::Key key{kHeadlessThreadScope, "run()"};
    fingerprint::display(*static_cast<CS310XSignObj *>(m_pSignObj), key);
}
