/* A program in C that includes the one public header: it has the address of every function and of the log switch. */
#include "kvsignpadsdk_global.h"

typedef void (*Function)(void);

#define KV_FUNCTION(family, operation) (Function) family##_##operation,
const Function kFunctionsSeenFromC[] = {
#include "exportednames.inl"
};
const int kFunctionCountSeenFromC = sizeof kFunctionsSeenFromC / sizeof kFunctionsSeenFromC[0];

const bool *const kLogSwitchSeenFromC = &g_bEnableLog;

/* Records and identifiers by the names that C gives them. */
int totalOfOnePointSeenFromC(void)
{
    INKPOINTDATA point = {1, 2, 3, 4, true};
    struct _tagKVAXIS axis = {10, 20};
    struct _tagKVSDKVERSION version = {100, 200};
    enum API_RETURN_ID result = ARI_INK_EMPTY;
    return point.nIndex + point.nX + point.nY + point.nPressureValue + point.bStrokeEnd + axis.nAXMin + axis.nAXMax
        + version.nMajorVersion + version.nMinorVersion + (int)result;
}

/* A call from C, with a record by its address. */
int answerWithoutInstanceSeenFromC(INKPOINTDATA *point)
{
    return KVS300_GetInkPointData(KVS300_DEVICE, point);
}
