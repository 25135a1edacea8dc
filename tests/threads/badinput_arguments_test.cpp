// Every int argument of every exported function at the limits of int and around its own limits, and null pointers
// wherever allowed: each call returns a documented answer, and the pad works afterwards.
#include "returnedtext.h"

#include <QTemporaryDir>

#include <climits>

namespace {

constexpr int kExtremes[] = {
    INT_MIN, INT_MIN + 1, -100000, -1, 0, 1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 99998, 99999, 100000, INT_MAX - 1, INT_MAX};

bool isOneOf(int value, std::initializer_list<int> values)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

class BadArguments : public testing::TestWithParam<PadCase>
{
protected:
    BadArguments()
        : pad(GetParam(), 80, 50)
    {
        pad.driver.send(twoStrokes(type));
        count = pad->GetTotalInkPointsNumber(type);
        EXPECT_EQ(count, 9);
    }
    ~BadArguments() override
    {
        pad->SetSaveClipImageMargin(type, false, 0, 0);
        pad.driver.send(twoStrokes(type));
        EXPECT_EQ(pad->GetTotalInkPointsNumber(type), 2 * count) << "the pad does not work any more";
    }

    std::wstring path(const char *name) const { return (directory.path() + '/' + name).toStdWString(); }

    /// The size of the image text.
    QSize textSize() const
    {
        const QByteArray bytes = textOf(pad, EBITI_BITMAP).bytes();
        return bytes.isEmpty() ? QSize() : QImage::fromData(bytes, "BMP").size();
    }

    const int type = GetParam().family->type;
    QTemporaryDir directory;
    OpenPad pad;
    int count = 0;
};

} // namespace

TEST_P(BadArguments, PenWidth)
{
    for (const int width : kExtremes)
        EXPECT_EQ(pad->SetPenWidth(type, width), width >= 1 && width <= 10 ? ARI_SUCCESS : ARI_INVALID_PARAMETERS);
}

TEST_P(BadArguments, PenColour)
{
    for (const int value : kExtremes) {
        for (const auto &colour : {std::array{value, 0, 0}, {0, value, 0}, {0, 0, value}, {value, value, value}}) {
            EXPECT_EQ(pad->SetPenColor(type, colour[0], colour[1], colour[2]), ARI_SUCCESS);
            pad.driver.send(stroke(type, {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
            EXPECT_FALSE(svgTextOf(pad).isNull());
        }
        EXPECT_EQ(textSize(), QSize(80, 50));
    }
    pad->Clear(type);
    pad.driver.send(twoStrokes(type));
}

TEST_P(BadArguments, PointIndexes)
{
    for (const int index : kExtremes) {
        INKPOINTDATA point{index, 11, 12, 13, true};
        EXPECT_EQ(pad->GetInkPointData(type, point), index >= 0 && index < count ? ARI_SUCCESS : ARI_FAIL) << index;
        EXPECT_EQ(point.nIndex, index);
        if (index < 0 || index >= count) {
            EXPECT_TRUE(point.nX == 11 && point.nY == 12 && point.nPressureValue == 13 && point.bStrokeEnd) << index;
        }
        char *time = pad->GetInkPointDataTimeInfo(type, index);
        EXPECT_EQ(time != nullptr, index >= 0 && index < count) << index;
        pad->FreeInkPointDataTimeInfo(type, time);
    }
}

TEST_P(BadArguments, DecodedIndexesAndFields)
{
    ASSERT_EQ(pad->Base64Decode(type, EBITI_INK, textOf(pad, EBITI_INK).pointer(), nullptr), ARI_SUCCESS);
    for (const int index : kExtremes) {
        const bool inRange = index >= 0 && index < count;
        EXPECT_EQ(pad->GetDecodeInkPointData(type, index, INKDATATYPE_X) != ARI_INVALID_PARAMETERS, inRange) << index;
    }
    for (const int field : kExtremes) {
        const bool known = field >= 1 && field <= 3;
        EXPECT_EQ(pad->GetDecodeInkPointData(type, 0, field) != ARI_INVALID_PARAMETERS, known) << field;
    }
}

TEST_P(BadArguments, FileTypesAndResolutions)
{
    for (const int value : kExtremes) {
        const int expected = isOneOf(value, {1, 2, 3, 7, 8}) ? ARI_SUCCESS : ARI_INVALID_PARAMETERS;
        EXPECT_EQ(pad->SaveDrawingImage(type, value, path("a.png").data(), IDLI_150DPI), expected) << value;
        EXPECT_EQ(pad->SaveDrawingImage(type, ITI_PNG, path("b.png").data(), value), ARI_SUCCESS);
        EXPECT_EQ(QImage(directory.filePath("b.png")).dotsPerMeterX(), value == 0 ? 5905 : 11811) << value;
    }
}

TEST_P(BadArguments, TextTypes)
{
    for (const int value : kExtremes) {
        const bool known = isOneOf(value, {1, 2, 3, 6});
        EXPECT_EQ(textOf(pad, value).isNull(), !known) << value;
        EXPECT_EQ(Text(type, pad->Base64EncodeEx(type, value, true), pad->Base64EncodeExFree).isNull(), !known);
        const int wrong = value == EBITI_INK ? ARI_SUCCESS : known ? ARI_INK_EMPTY : ARI_INVALID_PARAMETERS;
        EXPECT_EQ(pad->Base64Decode(type, value, "AAAA", path("c").data()), wrong) << value;
    }
}

TEST_P(BadArguments, DeviceItems)
{
    for (const int item : kExtremes) {
        char output[64] = "";
        const int expected = item >= 1 && item <= 7 ? ARI_SUCCESS : ARI_INVALID_PARAMETERS;
        EXPECT_EQ(pad->GetDeviceInfo(type, item, output), expected) << item;
        EXPECT_EQ(pad->GetDeviceInfo(type, item, nullptr), ARI_INVALID_PARAMETERS);
    }
}

// The buffer and its size go to the driver as they are.
TEST_P(BadArguments, TextSizes)
{
    char text[64] = "";
    for (const int size : {INT_MIN, -1, 0})
        EXPECT_EQ(pad->GetHWPadID(type, text, size), KVSPDART_INVALID_PARAMETERS) << size;
    EXPECT_EQ(pad->GetHWPadID(type, nullptr, 64), KVSPDART_INVALID_PARAMETERS);
    EXPECT_EQ(pad->GetHWVersion(type, nullptr, INT_MAX), KVSPDART_INVALID_PARAMETERS);
    if (pad->hasScreen) {
        EXPECT_EQ(pad->GetHWPenID(type, nullptr, INT_MAX), KVSPDART_INVALID_PARAMETERS);
    }
    EXPECT_EQ(pad->GetHWPadID(type, text, 1), ARI_SUCCESS);
    EXPECT_STREQ(text, "");
}

TEST_P(BadArguments, ClipMargins)
{
    for (const int x : kExtremes) {
        for (const int y : {INT_MIN, -1, 0, 3, 100000, INT_MAX}) {
            const bool valid = x >= 0 && y >= 0;
            EXPECT_EQ(pad->SetSaveClipImageMargin(type, true, x, y), valid ? ARI_SUCCESS : ARI_INVALID_PARAMETERS);
            if (valid && x >= 100 && y >= 100) {
                EXPECT_EQ(textSize(), QSize(80, 50)) << "a margin beyond the canvas leaves all of it";
            }
            EXPECT_EQ(pad->SaveDrawingImage(type, ITI_PNG, path("d.png").data(), 0), ARI_SUCCESS) << x << ' ' << y;
            EXPECT_FALSE(svgTextOf(pad).isNull());
        }
    }
}

// Of a blank canvas the rectangle is inverted and nothing is left, but for margins that reach from its marker 99999.
TEST_P(BadArguments, ClipMarginsOfABlankCanvas)
{
    pad->Clear(type);
    pad.driver.send(stroke(type, {{0.5, 0.5, 0.5}})); // a point, and nothing drawn
    for (const int margin : {1, 100, 99998, 99999, 100000, INT_MAX}) {
        pad->SetSaveClipImageMargin(type, true, margin, margin);
        const QSize expected = margin < 99999 - 79 ? QSize() : QSize(80 - std::max(0, 99999 - margin), 50);
        if (margin <= 100 || margin >= 99999) {
            EXPECT_EQ(textSize(), margin <= 100 ? QSize() : expected) << margin;
            EXPECT_EQ(pad->SaveDrawingImage(type, ITI_BITMAP, path("e.bmp").data(), 0),
                margin <= 100 ? ARI_INK_EMPTY : ARI_SUCCESS);
        }
        EXPECT_EQ(pad->SaveDrawingImage(type, ITI_SVG, path("e.svg").data(), 0), ARI_SUCCESS);
        EXPECT_EQ(pad->SaveDrawingImage(type, ITI_PDF, path("e.pdf").data(), 0), ARI_SUCCESS);
    }
    pad->Clear(type);
    pad.driver.send(twoStrokes(type));
}

TEST_P(BadArguments, NullPointers)
{
    for (const int file : {ITI_BITMAP, ITI_JPEG, ITI_PNG, ITI_PDF})
        EXPECT_EQ(pad->SaveDrawingImage(type, file, nullptr, 0), ARI_INK_EMPTY) << file;
    EXPECT_EQ(pad->SaveDrawingImage(type, ITI_SVG, nullptr, 0), ARI_SUCCESS) << "what becomes of an SVG goes unnoticed";
    EXPECT_EQ(pad->Base64Decode(type, EBITI_INK, nullptr, nullptr), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(pad->Base64Decode(type, EBITI_INK, "", nullptr), ARI_INVALID_PARAMETERS);
    EXPECT_EQ(pad->Base64Decode(type, EBITI_PNG, textOf(pad, EBITI_PNG).pointer(), nullptr), ARI_INK_EMPTY);
    EXPECT_EQ(pad->SignPadEventCallback(type, nullptr), ARI_SUCCESS);
    pad.driver.send(0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    pad->FreeInkPointDataTimeInfo(type, nullptr);
    pad->Base64EncodeFree(type, nullptr);
    pad->Base64EncodeExFree(type, nullptr);
    pad->FreeSVGImageBase64Data(type, nullptr);
    pad->GetAboutInfo(type, nullptr);
}

TEST_P(BadArguments, DeviceTypesOfEveryFunctionWithAnInt)
{
    for (const int wrong : {INT_MIN, -1, 0, 1, 6, 8, INT_MAX, type == 7 ? 5 : 7}) {
        INKPOINTDATA point{};
        EXPECT_FALSE(pad->InitialDevice(wrong, nullptr, 0, 0, 1, 1));
        EXPECT_EQ(pad->UnInitialDevice(wrong), ARI_INVALID_PARAMETERS);
        EXPECT_EQ(pad->Clear(wrong), ARI_INVALID_PARAMETERS);
        EXPECT_EQ(pad->SetPenWidth(wrong, 3), ARI_INVALID_PARAMETERS);
        EXPECT_EQ(pad->GetInkPointData(wrong, point), ARI_INVALID_PARAMETERS);
        EXPECT_EQ(pad->GetInkPointDataTimeInfo(wrong, 0), nullptr);
        EXPECT_EQ(pad->Base64Encode(wrong, EBITI_PNG), nullptr);
        EXPECT_EQ(pad->GetSVGImageBase64Data(wrong), nullptr);
        EXPECT_EQ(pad->SaveDrawingImage(wrong, ITI_PNG, nullptr, 0), ARI_INVALID_PARAMETERS);
        char untouched[] = "text";
        pad->Base64EncodeFree(wrong, untouched); // not its text: must not be freed
        pad->GetAboutInfo(wrong, untouched);
        EXPECT_STREQ(untouched, "text");
    }
    EXPECT_EQ(pad->GetTotalInkPointsNumber(type), count);
}

INSTANTIATE_TEST_SUITE_P(AllPads, BadArguments, testing::ValuesIn(allPads()), padCaseName);
