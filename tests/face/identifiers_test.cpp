// The public identifiers by their values, and the records by their bytes.
#include "kvsignpadsdk_global.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace {

struct Identifier
{
    const char *name;
    int value;
    int expected;
};

#define KV_IDENTIFIER(name, expected)                                                                                  \
    Identifier                                                                                                         \
    {                                                                                                                  \
#name, name, expected                                                                                          \
    }

const Identifier kIdentifiers[] = {
    KV_IDENTIFIER(ARI_SUCCESS, 0),
    KV_IDENTIFIER(ARI_FAIL, -1),
    KV_IDENTIFIER(ARI_INVALID_PARAMETERS, -2),
    KV_IDENTIFIER(ARI_DRIVER_INIT_FAIL, -3),
    KV_IDENTIFIER(ARI_DRIVER_OPEN_DEVICE_FAIL, -4),
    KV_IDENTIFIER(ARI_DRIVER_CLAIM_INTERFACE_FAIL, -5),
    KV_IDENTIFIER(ARI_DRIVER_CREATE_THREAD_FAIL, -6),
    KV_IDENTIFIER(ARI_DRIVER_SENT_CMD_FAIL, -7),
    KV_IDENTIFIER(ARI_INK_EMPTY, -8),
    KV_IDENTIFIER(ARI_SAVE_FAILE, -9),

    KV_IDENTIFIER(NONE_DEVICE, 0),
    KV_IDENTIFIER(KVS210_DEVICE, 2),
    KV_IDENTIFIER(KVR800_DEVICE, 3),
    KV_IDENTIFIER(KVM450_DEVICE, 4),
    KV_IDENTIFIER(KVS300_DEVICE, 5),
    KV_IDENTIFIER(KVS310X_DEVICE, 7),

    KV_IDENTIFIER(EBITI_BITMAP, 1),
    KV_IDENTIFIER(EBITI_JPEG, 2),
    KV_IDENTIFIER(EBITI_PNG, 3),
    KV_IDENTIFIER(EBITI_INK, 6),

    KV_IDENTIFIER(DIID_GET_STATUS, 1),
    KV_IDENTIFIER(DIID_GET_AXIS_X, 2),
    KV_IDENTIFIER(DIID_GET_AXIS_Y, 3),
    KV_IDENTIFIER(DIID_GET_PRESSURE, 4),
    KV_IDENTIFIER(DIID_GET_VENDOR, 5),
    KV_IDENTIFIER(DIID_GET_PRODUCT, 6),
    KV_IDENTIFIER(DIID_GET_DRV_VER, 7),

    KV_IDENTIFIER(INKDATATYPE_X, 1),
    KV_IDENTIFIER(INKDATATYPE_Y, 2),
    KV_IDENTIFIER(INKDATATYPE_STROKEEND, 3),

    KV_IDENTIFIER(IDLI_150DPI, 0),
    KV_IDENTIFIER(IDLI_300DPI, 1),

    KV_IDENTIFIER(ITI_BITMAP, 1),
    KV_IDENTIFIER(ITI_JPEG, 2),
    KV_IDENTIFIER(ITI_PNG, 3),
    KV_IDENTIFIER(ITI_PDF, 7),
    KV_IDENTIFIER(ITI_SVG, 8),

    KV_IDENTIFIER(NFPPA_NONE, 0),
    KV_IDENTIFIER(NFPPA_SIGN_FP_SAME_WIDGET, 1),
    KV_IDENTIFIER(NFPPA_SIGN_FP_DIFFERENT_WIDGET, 2),
    KV_IDENTIFIER(NFPPA_FP_ON_CANVAS_FROM_JS, 3),

    KV_IDENTIFIER(KVSPDARI_PS_PEN_DOWN, 0),
    KV_IDENTIFIER(KVSPDARI_PS_PEN_MOVE, 1),
    KV_IDENTIFIER(KVSPDARI_PS_PEN_UP, 2),
    KV_IDENTIFIER(KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON, 3),
    KV_IDENTIFIER(KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON, 4),

    KV_IDENTIFIER(KVSPDARI_SUCCESS, 0),
    KV_IDENTIFIER(KVSPDARI_FAILED, -1),
    KV_IDENTIFIER(KVSPDART_INVALID_PARAMETERS, -2),
    KV_IDENTIFIER(KVSPDARI_LIBUSB_INIT_FAIL, -3),
    KV_IDENTIFIER(KVSPDARI_LIBUSB_OPEN_DEVICE_FAIL, -4),
    KV_IDENTIFIER(KVSPDARI_LIBUSB_CLAIM_INTERFACE_FAIL, -5),
    KV_IDENTIFIER(KVSPDARI_LIBUSB_CREATE_THREAD_FAIL, -6),
    KV_IDENTIFIER(KVSPDARI_LIBUSB_SENT_CMD_FAIL, -7),
};

TEST(Identifiers, HaveTheirValues)
{
    for (const Identifier &identifier : kIdentifiers)
        EXPECT_EQ(identifier.value, identifier.expected) << identifier.name;
}

template <class Enumeration>
constexpr bool isPlain = std::is_enum_v<Enumeration> &&
                             std::is_convertible_v<Enumeration, int> && sizeof(Enumeration) == sizeof(int);

TEST(Identifiers, ArePlainEnumerationsOfIntSize)
{
    EXPECT_TRUE(isPlain<API_RETURN_ID>);
    EXPECT_TRUE(isPlain<DEVICE_TYPE_ID>);
    EXPECT_TRUE(isPlain<ENCODE_BASE64_IMAGE_TYPE_ID>);
    EXPECT_TRUE(isPlain<GET_DEVICE_INFO_ID_LIST>);
    EXPECT_TRUE(isPlain<GET_INK_DATA_TYPE_ID>);
    EXPECT_TRUE(isPlain<IMAGE_DPI_LEVEL_ID>);
    EXPECT_TRUE(isPlain<IMAGE_TYPE_ID>);
    EXPECT_TRUE(isPlain<NEW_FP_PROCESS_ACTION_ID_LIST>);
    EXPECT_TRUE(isPlain<KVSPDAPI_PEN_STATUS>);
    EXPECT_TRUE(isPlain<KVSPDAPI_RETURN_ID>);
}

struct Field
{
    const char *name;
    size_t offset;
    size_t size;
    size_t expectedOffset;
    size_t expectedSize;
};

#define KV_FIELD(record, field, offset, size)                                                                          \
    Field                                                                                                              \
    {                                                                                                                  \
#record "::" #field, offsetof(record, field), sizeof(record::field), offset, size                              \
    }

TEST(Records, HaveTheirLayout)
{
    const Field fields[] = {
        KV_FIELD(_INKPOINTDATA, nIndex, 0, 4),
        KV_FIELD(_INKPOINTDATA, nX, 4, 2),
        KV_FIELD(_INKPOINTDATA, nY, 6, 2),
        KV_FIELD(_INKPOINTDATA, nPressureValue, 8, 2),
        KV_FIELD(_INKPOINTDATA, bStrokeEnd, 10, 1),
        KV_FIELD(_POINTDATA, nX, 0, 2),
        KV_FIELD(_POINTDATA, nY, 2, 2),
        KV_FIELD(_POINTDATA, nPressureValue, 4, 2),
        KV_FIELD(_POINTDATA, bStrokeEnd, 6, 1),
        KV_FIELD(_POINTDATA, ulTickCount, 8, 8),
        KV_FIELD(_POINTDATA, pointTime, 16, 8),
        KV_FIELD(_SignContext, nSignWndWidth, 0, 4),
        KV_FIELD(_SignContext, nSignWndHeight, 4, 4),
        KV_FIELD(_SignContext, nSignRawOffset_X, 8, 4),
        KV_FIELD(_SignContext, nSignRawOffset_Y, 12, 4),
        KV_FIELD(_SignContext, dblWidthRatioOfSignWndOverSignRaw, 16, 8),
        KV_FIELD(_SignContext, dblHeightRatioOfSignWndOverSignRaw, 24, 8),
        KV_FIELD(_SignContext, dblSignPressureRatio, 32, 8),
        KV_FIELD(_tagKVAXIS, nAXMin, 0, 4),
        KV_FIELD(_tagKVAXIS, nAXMax, 4, 4),
        KV_FIELD(_tagKVSDKVERSION, nMajorVersion, 0, 4),
        KV_FIELD(_tagKVSDKVERSION, nMinorVersion, 4, 4),
    };
    for (const Field &field : fields) {
        EXPECT_EQ(field.offset, field.expectedOffset) << field.name;
        EXPECT_EQ(field.size, field.expectedSize) << field.name;
    }
    EXPECT_EQ(sizeof(_INKPOINTDATA), 12u);
    EXPECT_EQ(sizeof(_POINTDATA), 24u);
    EXPECT_EQ(sizeof(_SignContext), 40u);
    EXPECT_EQ(sizeof(_tagKVAXIS), 8u);
    EXPECT_EQ(sizeof(_tagKVSDKVERSION), 8u);
}

TEST(Records, HaveTheirTypes)
{
    EXPECT_TRUE((std::is_same_v<INKPOINTDATA, _INKPOINTDATA>));
    EXPECT_TRUE((std::is_same_v<SingContext, _SignContext>));
    EXPECT_TRUE((std::is_same_v<decltype(_SignContext::nSignRawOffset_X), int>));
    EXPECT_TRUE((std::is_same_v<decltype(_SignContext::dblSignPressureRatio), double>));
    EXPECT_TRUE((std::is_same_v<decltype(_INKPOINTDATA::nIndex), int>));
    EXPECT_TRUE((std::is_same_v<decltype(_INKPOINTDATA::nX), short>));
    EXPECT_TRUE((std::is_same_v<decltype(_INKPOINTDATA::nY), short>));
    EXPECT_TRUE((std::is_same_v<decltype(_INKPOINTDATA::nPressureValue), short>));
    EXPECT_TRUE((std::is_same_v<decltype(_INKPOINTDATA::bStrokeEnd), bool>));
    EXPECT_TRUE((std::is_same_v<decltype(_tagKVAXIS::nAXMin), int>));
    EXPECT_TRUE((std::is_same_v<decltype(_tagKVAXIS::nAXMax), int>));
    EXPECT_TRUE((std::is_same_v<decltype(_tagKVSDKVERSION::nMajorVersion), int>));
    EXPECT_TRUE((std::is_same_v<decltype(_tagKVSDKVERSION::nMinorVersion), int>));
}

TEST(Callbacks, HaveTheirSignatures)
{
    EXPECT_TRUE((std::is_same_v<SIGNPAD_EVENT_CALLBACK, void (*)(int)>));
    EXPECT_TRUE((std::is_same_v<SIGNPAD_SIGN_BASE64_DATA_CALLBACK, void (*)(char *)>));
    EXPECT_TRUE((std::is_same_v<NOTIFY_HWSIGNDATA, void (*)(int, int, int, int)>));
    EXPECT_TRUE((std::is_same_v<NOTIFY_FPDATA, void (*)(unsigned char *, int, int)>));
}

} // namespace
