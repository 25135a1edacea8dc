// The ten classes have the same methods with the same signatures; a model's own methods are on both of its hosts.
#include "padclasses.h"

namespace {

template <class Pad>
class InstanceMethods : public testing::Test
{
};
TYPED_TEST_SUITE(InstanceMethods, PadClasses, PadClassNames);

#define KV_METHOD(method, result, ...)                                                                                 \
    EXPECT_TRUE((std::is_same_v<decltype(&TypeParam::method), result (TypeParam::*)(__VA_ARGS__)>)) << #method

TYPED_TEST(InstanceMethods, OpenAndControlThePad)
{
    KV_METHOD(LoadKVSignPadDriver, bool);
    KV_METHOD(IsDeviceConnected, bool);
    KV_METHOD(ShutdownKVSignPadDriver, bool);
    KV_METHOD(Shutdown, void);
    KV_METHOD(ClearDeviceContent, int);
    KV_METHOD(GetDevicePadID, int, char *, int);
    KV_METHOD(GetDevicePartsVersion, int, char *, int);
    KV_METHOD(SetDevicePenStyle, int, bool);
    KV_METHOD(SetDevicePenWidth, int, int);
    KV_METHOD(SetDevicePenColor, int, int, int, int);
    KV_METHOD(GetDeviceInfo, int, int, void *);
    if constexpr (PadTraits<TypeParam>::hasScreen) {
        KV_METHOD(OpenDeviceLCD, int, bool);
        KV_METHOD(GetDevicePenID, int, char *, int);
        KV_METHOD(GetDeviceSecureID, int, char *, int);
        KV_METHOD(ShowVersionInfoOnDevice, int, bool);
    }
}

TYPED_TEST(InstanceMethods, CaptureAndQueryTheInk)
{
    KV_METHOD(SetSignPadEventCallback, int, SIGNPAD_EVENT_CALLBACK);
    KV_METHOD(GetDeviceConfirmOrCancelKeyStatus, int);
    KV_METHOD(ConvertSignRawDataToSignWndData, void, int, int, int, double &, double &, double &);
    KV_METHOD(clearCanvas, void, QImage &, int, int);
    KV_METHOD(StartSignOnCanvas, void, double, double, double);
    KV_METHOD(ClearSignCanvas, void);
    KV_METHOD(GetTotalInkPointsNumber, int);
    KV_METHOD(GetInkPointData, int, _INKPOINTDATA &);
    KV_METHOD(GetInkPointDataTimeInfo, char *, int);
    KV_METHOD(FreeInkPointDataTimeInfo, void, char *);
}

TYPED_TEST(InstanceMethods, HandOutTheSignature)
{
    KV_METHOD(SetSaveClipImageMargin, int, bool, int, int);
    KV_METHOD(CheckSignImageBoundingBox, void, QRect &);
    KV_METHOD(MakeAsTransparentImage, void, QImage &, QColor);
    KV_METHOD(SaveDrawingImage, int, int, wchar_t *, int);
    KV_METHOD(SaveDrawingImageAsPDFFile, bool, QImage, QString, int);
    KV_METHOD(SaveDrawingImageAsSVGFile, bool, QImage, QString, int, QRect);
    KV_METHOD(Base64Encode, char *, int);
    KV_METHOD(Base64EncodeFree, void, char *);
    KV_METHOD(Base64EncodeEx, char *, int, bool);
    KV_METHOD(Base64EncodeExFree, void, char *);
    KV_METHOD(EncodeBase64SignImage, char *, int);
    KV_METHOD(EncodeBase64SignImageEx, char *, int, bool);
    KV_METHOD(GetSVGImageBase64Data, char *);
    KV_METHOD(FreeSVGImageBase64Data, void, char *);
    KV_METHOD(Base64Decode, int, int, const char *, wchar_t *);
    KV_METHOD(GetTotalDecodeInkPointsNumber, int);
    KV_METHOD(GetDecodeInkPointData, int, int, int);
}

#define KV_PACKET_METHOD(model)                                                                                        \
    KV_METHOD_OF(C##model##SignWidget, Rx##model##SignPadRawData, void, int, int, int, int);                           \
    KV_METHOD_OF(C##model##SignObj, Rx##model##SignPadRawData, void, int, int, int, int)
#define KV_METHOD_OF(Class, method, result, ...)                                                                       \
    EXPECT_TRUE((std::is_same_v<decltype(&Class::method), result (Class::*)(__VA_ARGS__)>)) << #Class "::" #method
#define KV_METHOD_OF_BOTH(model, method, result, ...)                                                                  \
    KV_METHOD_OF(C##model##SignWidget, method, result, __VA_ARGS__);                                                   \
    KV_METHOD_OF(C##model##SignObj, method, result, __VA_ARGS__)

TEST(InstanceMethodsOfOneModel, TakeItsPackets)
{
    KV_PACKET_METHOD(S210);
    KV_PACKET_METHOD(S300);
    KV_PACKET_METHOD(S310X);
    KV_PACKET_METHOD(R800);
    KV_PACKET_METHOD(M450);
}

TEST(InstanceMethodsOfOneModel, PushLiveImages)
{
    KV_METHOD_OF_BOTH(S210, SetRealTimeSignBase64DataCallback, bool, int, void (*)(char *));
    KV_METHOD_OF_BOTH(S210, CheckIfNeedToSendRealTimeSignBase64Data, void);
    KV_METHOD_OF(CS210SignObj, InitialWPSSignCanvas, bool, int, int);
    KV_METHOD_OF(CS210SignObj, WPSBase64Encode, char *, int);
    KV_METHOD_OF(CS210SignObj, WPSEncodeBase64SignImage, char *, int);
    KV_METHOD_OF(CS210SignObj, WPSBase64EncodeFree, void, char *);
}

TEST(InstanceMethodsOfOneModel, TakeFingerprints)
{
    KV_METHOD_OF_BOTH(S310X, RxS310XSignPadFPRawData, void, unsigned char *, int, int);
    KV_METHOD_OF_BOTH(S310X, AreWeGoingToShutDown, bool);
    KV_METHOD_OF_BOTH(S310X, CheckIfAnyNewFPImageRawDataOnDeviceAvailable, void);
    KV_METHOD_OF_BOTH(S310X, ProcessShowFPImgaeRawDataOnDevice, void);
    KV_METHOD_OF_BOTH(S310X, MergeSignCanvasAndFPCanvas, void);
    KV_METHOD_OF_BOTH(S310X, GetFPImageBase64Data, char *, int, bool);
    KV_METHOD_OF_BOTH(S310X, FreeFPImageBase64Data, void, char *);
    KV_METHOD_OF(CS310XSignWidget, SetDisplayedFPImageAt, int, QWidget *, int, int, int, int);
    KV_METHOD_OF(CS310XSignObj, SetDisplayedFPImageAt, int, int, int, int, int, int, int);
}

TYPED_TEST(InstanceMethods, AreConstructedAsTheirHostIs)
{
    if constexpr (isWidget<TypeParam>) {
        EXPECT_TRUE((std::is_constructible_v<TypeParam, QWidget *>));
        EXPECT_FALSE((std::is_constructible_v<TypeParam, int, int>));
    } else {
        EXPECT_TRUE((std::is_constructible_v<TypeParam, int, int>));
        EXPECT_FALSE((std::is_constructible_v<TypeParam, QWidget *>));
    }
}

} // namespace
