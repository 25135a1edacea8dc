// One header is enough for a caller, in C++ and in C: this file includes nothing else of the library.
#include "kvsignpadsdk_global.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

using Function = void (*)();

extern "C" {
extern const Function kFunctionsSeenFromC[];
extern const int kFunctionCountSeenFromC;
extern const bool *const kLogSwitchSeenFromC;
int totalOfOnePointSeenFromC(void);
int answerWithoutInstanceSeenFromC(INKPOINTDATA *point);
}

namespace {

#define KV_FUNCTION(family, operation) reinterpret_cast<Function>(family##_##operation),
const std::vector<Function> kFunctions = {
#include "exportednames.inl"
};
#undef KV_FUNCTION

TEST(OneHeader, DeclaresEveryFunction)
{
    EXPECT_EQ(kFunctions.size(), 156u);
    EXPECT_EQ(std::set<Function>(kFunctions.begin(), kFunctions.end()).size(), 156u) << "each is a function of its own";
    EXPECT_EQ(std::count(kFunctions.begin(), kFunctions.end(), nullptr), 0);
}

TEST(OneHeader, IsTheSameForAProgramInC)
{
    const std::vector<Function> seenFromC(kFunctionsSeenFromC, kFunctionsSeenFromC + kFunctionCountSeenFromC);
    EXPECT_EQ(seenFromC, kFunctions);
    EXPECT_EQ(kLogSwitchSeenFromC, &g_bEnableLog);
    EXPECT_EQ(totalOfOnePointSeenFromC(), 1 + 2 + 3 + 4 + 1 + 10 + 20 + 100 + 200 - 8);
    INKPOINTDATA point{0, 5, 6, 7, true};
    EXPECT_EQ(answerWithoutInstanceSeenFromC(&point), ARI_FAIL);
    EXPECT_EQ(point.nX, 5);
}

#define KV_SIGNATURE(function, ...) EXPECT_TRUE((std::is_same_v<decltype(&function), __VA_ARGS__>)) << #function
#define KV_ALL_SIGNATURES(operation, ...)                                                                              \
    KV_SCREEN_SIGNATURES(operation, __VA_ARGS__);                                                                      \
    KV_SIGNATURE(KVR800_##operation, __VA_ARGS__);                                                                     \
    KV_SIGNATURE(KVM450_##operation, __VA_ARGS__)
#define KV_SCREEN_SIGNATURES(operation, ...)                                                                           \
    KV_SIGNATURE(KVS210_##operation, __VA_ARGS__);                                                                     \
    KV_SIGNATURE(KVS300_##operation, __VA_ARGS__);                                                                     \
    KV_SIGNATURE(KVS310X_##operation, __VA_ARGS__)

TEST(OneHeader, GivesTheDeviceFunctionsTheirSignatures)
{
    KV_ALL_SIGNATURES(InitialDevice, bool (*)(int, QWidget *, int, int, int, int));
    KV_ALL_SIGNATURES(UnInitialDevice, int (*)(int));
    KV_SCREEN_SIGNATURES(OpenLCD, int (*)(int, bool));
    KV_ALL_SIGNATURES(Clear, int (*)(int));
    KV_SCREEN_SIGNATURES(GetHWPenID, int (*)(int, char *, int));
    KV_ALL_SIGNATURES(GetHWPadID, int (*)(int, char *, int));
    KV_ALL_SIGNATURES(GetHWVersion, int (*)(int, char *, int));
    KV_SCREEN_SIGNATURES(DisplayHWVersion, int (*)(int, bool));
    KV_ALL_SIGNATURES(SetPenStyle, int (*)(int, bool));
    KV_ALL_SIGNATURES(SetPenWidth, int (*)(int, int));
    KV_ALL_SIGNATURES(SetPenColor, int (*)(int, int, int, int));
    KV_ALL_SIGNATURES(SignPadEventCallback, int (*)(int, void (*)(int)));
    KV_ALL_SIGNATURES(GetDeviceConfirmOrCancelKeyStatus, int (*)(int));
    KV_ALL_SIGNATURES(GetDeviceInfo, int (*)(int, int, void *));
    KV_ALL_SIGNATURES(AboutBox, void (*)(QWidget *));
    KV_ALL_SIGNATURES(GetAboutInfo, void (*)(int, void *));
}

TEST(OneHeader, GivesTheInkFunctionsTheirSignatures)
{
    KV_ALL_SIGNATURES(GetTotalInkPointsNumber, int (*)(int));
    KV_ALL_SIGNATURES(GetInkPointData, int (*)(int, const INKPOINTDATA &));
    KV_ALL_SIGNATURES(GetInkPointDataTimeInfo, char *(*)(int, int));
    KV_ALL_SIGNATURES(FreeInkPointDataTimeInfo, void (*)(int, char *));
    KV_ALL_SIGNATURES(SaveDrawingImage, int (*)(int, int, wchar_t *, int));
    KV_ALL_SIGNATURES(SetSaveClipImageMargin, int (*)(int, bool, int, int));
    KV_ALL_SIGNATURES(Base64Encode, char *(*)(int, int));
    KV_ALL_SIGNATURES(Base64EncodeFree, void (*)(int, char *));
    KV_ALL_SIGNATURES(Base64EncodeEx, char *(*)(int, int, bool));
    KV_ALL_SIGNATURES(Base64EncodeExFree, void (*)(int, char *));
    KV_ALL_SIGNATURES(Base64Decode, int (*)(int, int, const char *, wchar_t *));
    KV_ALL_SIGNATURES(GetTotalDecodeInkPointsNumber, int (*)(int));
    KV_ALL_SIGNATURES(GetDecodeInkPointData, int (*)(int, int, int));
    KV_ALL_SIGNATURES(GetSVGImageBase64Data, char *(*)(int));
    KV_ALL_SIGNATURES(FreeSVGImageBase64Data, void (*)(int, char *));
}

TEST(OneHeader, GivesOneFamilysFunctionsTheirSignatures)
{
    KV_SIGNATURE(KVS210_SetRealTimeSignBase64DataCallback, bool (*)(int, int, void (*)(char *)));
    KV_SIGNATURE(KVS210_InitialWPSSignCanvas, bool (*)(int, int, int));
    KV_SIGNATURE(KVS210_WPSBase64Encode, char *(*)(int, int));
    KV_SIGNATURE(KVS210_WPSBase64EncodeFree, void (*)(int, char *));
    KV_SIGNATURE(KVS310X_SetDisplayedFPImageAt, int (*)(int, QWidget *, int, int, int, int, int, int));
    KV_SIGNATURE(KVS310X_GetFPImageBase64Data, char *(*)(int, int, bool));
    KV_SIGNATURE(KVS310X_FreeFPImageBase64Data, void (*)(int, char *));
}

} // namespace
