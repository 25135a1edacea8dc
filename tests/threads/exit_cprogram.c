/* A program that closes its pad in a function that it gave to atexit() before the driver was loaded, as the destructor
 * of a static object does: the driver's own static objects are destroyed by then. It ends with 0 when each model's
 * child closed its pad well, in time. */
#include "childwait.h"
#include "kvsignpadsdk_global.h"

#include <malloc.h>
#include <stdlib.h>

enum
{
    FREED_BYTE = 0x5a
};

/* Runs in a child, which can be ended when it hangs. */
#define DEFINE_TRY(family)                                                                                             \
    static void close##family(void)                                                                                    \
    {                                                                                                                  \
        if (family##_UnInitialDevice(family##_DEVICE) != ARI_SUCCESS)                                                  \
            _exit(2);                                                                                                  \
    }                                                                                                                  \
    static int try##family(void)                                                                                       \
    {                                                                                                                  \
        const pid_t child = fork();                                                                                    \
        if (child == 0) {                                                                                              \
            mallopt(M_PERTURB, FREED_BYTE);                                                                            \
            atexit(close##family);                                                                                     \
            if (!family##_InitialDevice(family##_DEVICE, NULL, 0, 0, 400, 200))                                        \
                _exit(3);                                                                                              \
            exit(0);                                                                                                   \
        }                                                                                                              \
        return wait_for(child, #family);                                                                               \
    }

DEFINE_TRY(KVS210)
DEFINE_TRY(KVR800)
DEFINE_TRY(KVM450)
DEFINE_TRY(KVS300)
DEFINE_TRY(KVS310X)

int main(void)
{
    setenv("KVSIM_RECORDING", "none", 1);
    return tryKVS210() + tryKVR800() + tryKVM450() + tryKVS300() + tryKVS310X();
}
