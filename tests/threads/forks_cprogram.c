/* A program that forks while its pad is read: each child has the parent's memory, but not the threads that work on it.
 * The children of even number close the pad first, all end as programs do. It ends with 0 when every child did, in
 * time. */
#include "childwait.h"
#include "kvsignpadsdk_global.h"

#include <stdlib.h>

enum
{
    CHILDREN = 20
};

static void tapped(int key)
{
    (void)key;
}

#define DEFINE_TRY(family)                                                                                             \
    static int try##family(void)                                                                                       \
    {                                                                                                                  \
        int failed = 0;                                                                                                \
        if (!family##_InitialDevice(family##_DEVICE, NULL, 0, 0, 400, 200))                                            \
            return 1;                                                                                                  \
        family##_SignPadEventCallback(family##_DEVICE, tapped);                                                        \
        family##_Clear(family##_DEVICE);                                                                               \
        while (family##_GetTotalInkPointsNumber(family##_DEVICE) <= 0)                                                 \
            usleep(100);                                                                                               \
        for (int i = 0; i < CHILDREN && !failed; ++i) {                                                                \
            const pid_t child = fork();                                                                                \
            if (child == 0)                                                                                            \
                exit(i % 2 == 0 ? family##_UnInitialDevice(family##_DEVICE) : 0);                                      \
            failed = wait_for(child, #family);                                                                         \
        }                                                                                                              \
        return family##_UnInitialDevice(family##_DEVICE) != ARI_SUCCESS || failed;                                     \
    }

DEFINE_TRY(KVS210)
DEFINE_TRY(KVR800)
DEFINE_TRY(KVM450)
DEFINE_TRY(KVS300)
DEFINE_TRY(KVS310X)

int main(void)
{
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_REPEAT", "0", 1);
    setenv("KVSIM_DELAY_MS", "0", 1);
    return tryKVS210() + tryKVR800() + tryKVM450() + tryKVS300() + tryKVS310X();
}
