// Extreme arguments of the functions that one model alone has.
#include "returnedtext.h"

#include <climits>

namespace {

constexpr int kExtremes[] = {INT_MIN, INT_MIN + 1, -100000, -1, 0, 1, 59, 60, 61, 100000, INT_MAX - 1, INT_MAX};

class BadOfficeCanvas : public testing::Test
{
protected:
    BadOfficeCanvas()
        : pad({&kS210Family, true}, 80, 50)
    {
        pad.driver.send(twoStrokes(pad.type()));
    }

    QByteArray office(int type) const
    {
        return Text(pad.type(), KVS210_WPSBase64Encode(pad.type(), type), KVS210_WPSBase64EncodeFree).text();
    }

    OpenPad pad;
};

class BadFingerprintPlace : public testing::TestWithParam<PadCase>
{
protected:
    BadFingerprintPlace()
        : pad(GetParam(), 60, 60)
    {
        pad.driver.send(twoStrokes(pad.type()));
        pad.driver.sendFingerprint(std::vector<unsigned char>(208 * 288, 100), 10);
    }

    int place(int left, int top, int width, int height) const
    {
        return KVS310X_SetDisplayedFPImageAt(pad.type(), pad.window(), 60, 60, left, top, width, height);
    }

    void encodeBoth() const
    {
        for (const bool only : {false, true})
            KVS310X_FreeFPImageBase64Data(
                pad.type(), KVS310X_GetFPImageBase64Data(pad.type(), EBITI_PNG, only)); // must only not crash
    }

    OpenPad pad;
};

bool isInside(long long first, long long size)
{
    const long long last = first + size - 1;
    return first >= 0 && first < 60 && last >= 0 && last < 60;
}

} // namespace

TEST_F(BadOfficeCanvas, Sizes)
{
    for (const int width : kExtremes) {
        for (const int height : {INT_MIN, -1, 0, 1, 30, 100000, INT_MAX}) {
            const bool isTaken = width != 0 && height != 0;
            EXPECT_EQ(KVS210_InitialWPSSignCanvas(pad.type(), width, height), isTaken);
            if (!isTaken) {
                continue;
            }
            // Canvases of hundreds of megabytes are neither refused nor tried here.
            const bool isNone = width < 0 || height < 0 || 1LL * width * height > INT_MAX / 4;
            if (isNone) {
                EXPECT_EQ(office(EBITI_PNG), "") << width << ' ' << height;
            } else if (1LL * width * height <= 12'000'000) {
                // Larger pictures than this no JPEG can hold.
                EXPECT_EQ(office(EBITI_JPEG).isEmpty(), std::max(width, height) > 65500) << width << ' ' << height;
            }
        }
    }
}

TEST_F(BadOfficeCanvas, TypesAndNulls)
{
    for (const int type : kExtremes) {
        EXPECT_EQ(KVS210_WPSBase64Encode(pad.type(), type), nullptr);
        EXPECT_FALSE(KVS210_SetRealTimeSignBase64DataCallback(pad.type(), type, [](char *) { ADD_FAILURE(); }));
    }
    EXPECT_FALSE(KVS210_SetRealTimeSignBase64DataCallback(pad.type(), EBITI_PNG, nullptr));
    KVS210_WPSBase64EncodeFree(pad.type(), nullptr);
    pad.driver.send(twoStrokes(pad.type()));
}

TEST_P(BadFingerprintPlace, Corners)
{
    for (const int first : kExtremes) {
        for (const int size : kExtremes) {
            const int expected = isInside(first, size) ? ARI_SUCCESS : ARI_INVALID_PARAMETERS;
            EXPECT_EQ(place(first, 0, size, 60), expected) << first << ' ' << size;
            EXPECT_EQ(place(0, first, 60, size), expected) << first << ' ' << size;
        }
        encodeBoth();
    }
    pad.driver.send(twoStrokes(pad.type()));
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 18);
}

TEST_P(BadFingerprintPlace, CanvasSizes)
{
    for (const int width : kExtremes) {
        for (const int height : {INT_MIN, -1, 0, 1, 60, 100000, INT_MAX}) {
            const int result =
                KVS310X_SetDisplayedFPImageAt(pad.type(), pad.window(), width, height, 0, 0, width, height);
            // The widget goes by its own size, here 60 by 60.
            const bool inside =
                GetParam().headless ? width > 0 && height > 0 : isInside(0, width) && isInside(0, height);
            EXPECT_EQ(result, inside ? ARI_SUCCESS : ARI_INVALID_PARAMETERS) << width << ' ' << height;
            if (!GetParam().headless || 1LL * width * height < 10'000'000 || 1LL * width * height > INT_MAX / 4)
                encodeBoth();
        }
    }
}

TEST_P(BadFingerprintPlace, TypesAndNulls)
{
    place(0, 0, 10, 10);
    for (const int type : kExtremes) {
        if (type < EBITI_BITMAP || type > EBITI_PNG) {
            EXPECT_EQ(KVS310X_GetFPImageBase64Data(pad.type(), type, true), nullptr);
        }
    }
    KVS310X_FreeFPImageBase64Data(pad.type(), nullptr);
    const int withoutParent = GetParam().headless ? ARI_SUCCESS : ARI_INVALID_PARAMETERS;
    EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(pad.type(), nullptr, 60, 60, 0, 0, 10, 10), withoutParent);
    EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
}

INSTANTIATE_TEST_SUITE_P(S310X, BadFingerprintPlace,
    testing::Values(PadCase{&kS310XFamily, false}, PadCase{&kS310XFamily, true}), padCaseName);
