// A pad driver that misbehaves on request: one operation throws, or never returns. Its pen is a thread that can be
// cancelled.
#include "kvsignpadsdk_global.h"

#include <cstdlib>
#include <cstring>
#include <pthread.h>
#include <semaphore.h>
#include <unistd.h>

namespace {

/// Of the driver alone, so that nobody can end such an exception once the driver is unloaded.
class Trouble
{
public:
    virtual ~Trouble();
};
Trouble::~Trouble() = default;

int deviceType = 0;
NOTIFY_HWSIGNDATA penReceiver = nullptr;
sem_t blocked; // all zero is its start
pthread_t pen;

bool isNamedIn(const char *variable, const char *operation)
{
    const char *named = std::getenv(variable);
    return named != nullptr && std::strcmp(named, operation) == 0;
}

int answer(const char *operation)
{
    if (isNamedIn("KV_UNRULY_THROWS", operation))
        throw Trouble();
    if (isNamedIn("KV_UNRULY_BLOCKS", operation)) {
        sem_post(&blocked);
        for (;;)
            pause();
    }
    return KVSPDARI_SUCCESS;
}

int answerText(const char *operation, char *text, int size)
{
    const char *version = deviceType == KVS210_DEVICE ? "KVS210"
        : deviceType == KVS300_DEVICE                 ? "KVS300"
        : deviceType == KVS310X_DEVICE                ? "KVS310X"
        : deviceType == KVR800_DEVICE                 ? "KVR800"
                                                      : "KVM450";
    std::strncpy(text, version, static_cast<size_t>(size));
    return answer(operation);
}

void *tap(void *)
{
    penReceiver(0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    return nullptr;
}

} // namespace

#define KV_DRIVER extern "C" __attribute__((visibility("default")))

KV_DRIVER int KVSPDAPI_Initial(int nDeviceType, NOTIFY_HWSIGNDATA receiver, NOTIFY_FPDATA)
{
    deviceType = nDeviceType;
    penReceiver = receiver;
    return answer("Initial");
}
KV_DRIVER int KVSPDAPI_UnInitial()
{
    return answer("UnInitial");
}
KV_DRIVER int KVSPDAPI_OpenDeviceLCD(bool)
{
    return answer("OpenDeviceLCD");
}
KV_DRIVER int KVSPDAPI_ClearDeviceContent()
{
    return answer("ClearDeviceContent");
}
KV_DRIVER int KVSPDAPI_GetDevicePenID(char *text, int size)
{
    return answerText("GetDevicePenID", text, size);
}
KV_DRIVER int KVSPDAPI_GetDevicePadID(char *text, int size)
{
    return answerText("GetDevicePadID", text, size);
}
KV_DRIVER int KVSPDAPI_GetDeviceSecureID(char *text, int size)
{
    return answerText("GetDeviceSecureID", text, size);
}
KV_DRIVER int KVSPDAPI_GetDevicePartsVersion(char *text, int size)
{
    return answerText("GetDevicePartsVersion", text, size);
}
KV_DRIVER int KVSPDAPI_ShowVersionInfoOnDevice(bool)
{
    return answer("ShowVersionInfoOnDevice");
}
KV_DRIVER int KVSPDAPI_SetDevicePenStyle(bool)
{
    return answer("SetDevicePenStyle");
}
KV_DRIVER int KVSPDAPI_ShowFPImageOnDevice(unsigned char *, int, int, int, bool *)
{
    return answer("ShowFPImageOnDevice");
}

/// The pen taps on the confirm button, on a thread of its own.
KV_DRIVER void UNRULY_Tap()
{
    pthread_create(&pen, nullptr, tap, nullptr);
}
/// Returns when the operation that does not return is under way.
KV_DRIVER void UNRULY_WaitUntilBlocked()
{
    while (sem_wait(&blocked) != 0) { }
}
/// Whether the pen's thread ended by its cancellation.
KV_DRIVER bool UNRULY_CancelPen()
{
    void *result = nullptr;
    pthread_cancel(pen);
    pthread_join(pen, &result);
    return result == PTHREAD_CANCELED;
}
