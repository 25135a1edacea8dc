// What a caller asks the pad and sets on the pen, through the exported functions.
#include "logmessages.h"
#include "openpad.h"

#include <QColor>

#include <array>
#include <cstring>

namespace {

class DeviceSettings : public testing::TestWithParam<PadCase>
{
protected:
    const Family &family() const { return *GetParam().family; }
    int type() const { return family().type; }
    bool hasScreen() const { return family().hasScreen; }
};

struct TextQuery
{
    const char *operation;
    int (*Family::*function)(int, char *, int);
    const char *argument; ///< as the member's log line names the buffer
};

constexpr TextQuery kQueries[] = {
    {"GetDevicePenID", &Family::GetHWPenID, "pPenID"},
    {"GetDevicePadID", &Family::GetHWPadID, "pPadID"},
    {"GetDevicePartsVersion", &Family::GetHWVersion, "pVersion"},
};

TEST_P(DeviceSettings, TextQueriesPassBufferSizeAndResultThrough)
{
    OpenPad pad(GetParam());
    for (const TextQuery &query : kQueries) {
        const auto ask = family().*query.function;
        if (ask == nullptr) {
            EXPECT_FALSE(hasScreen());
            continue;
        }
        pad.driver.setText(query.operation, "ABC-0123456789");
        for (const int result : {0, -1, -7, 5}) {
            pad.driver.setResult(query.operation, result);
            pad.driver.forgetCalls();
            std::array<char, 8> buffer;
            buffer.fill('#');
            EXPECT_EQ(ask(type(), buffer.data(), 5), result);
            EXPECT_EQ(std::string(buffer.data(), buffer.size()), std::string("ABC-\0###", 8));
            EXPECT_EQ(pad.driver.calls(), std::string(query.operation) + " 5\n");
        }
    }
}

TEST_P(DeviceSettings, TextQueriesLeaveTheCheckOfTheBufferToTheDriver)
{
    OpenPad pad(GetParam());
    for (const TextQuery &query : kQueries) {
        const auto ask = family().*query.function;
        if (ask == nullptr)
            continue;
        pad.driver.forgetCalls();
        char byte = '#';
        EXPECT_EQ(ask(type(), nullptr, 32), KVSPDART_INVALID_PARAMETERS);
        EXPECT_EQ(ask(type(), &byte, 0), KVSPDART_INVALID_PARAMETERS);
        EXPECT_EQ(ask(type(), nullptr, INT_MIN), KVSPDART_INVALID_PARAMETERS);
        EXPECT_EQ(byte, '#');
        const std::string name = query.operation;
        EXPECT_EQ(pad.driver.calls(), name + " 32\n" + name + " 0\n" + name + " -2147483648\n");
    }
}

TEST_P(DeviceSettings, TextQueriesTellTheirArguments)
{
    OpenPad pad(GetParam());
    char buffer[16];
    char address[32];
    std::snprintf(address, sizeof address, "%lx", reinterpret_cast<unsigned long>(buffer));
    for (const TextQuery &query : kQueries) {
        const auto ask = family().*query.function;
        if (ask == nullptr)
            continue;
        pad.driver.setResult(query.operation, -7);
        const LogTail log;
        const LogOn on;
        ask(type(), buffer, 16);
        EXPECT_EQ(messagesOf(log, std::string(GetParam().className()) + "::" + query.operation + "()"),
            (Lines{"<%ld>-enter, " + std::string(query.argument) + "=" + address + ", nMaxCount=16",
                "<%ld>-leave with nResult=-7"}));
    }
}

TEST_P(DeviceSettings, CommandsPassTheDriversResultThrough)
{
    OpenPad pad(GetParam());
    for (const int result : {0, -7, 5, INT_MIN}) {
        pad.driver.setResult("ShowVersionInfoOnDevice", result);
        pad.driver.setResult("OpenDeviceLCD", result);
        pad.driver.setResult("SetDevicePenStyle", result);
        pad.driver.setResult("ClearDeviceContent", result);
        pad.driver.forgetCalls();
        std::string expected;
        EXPECT_EQ(family().SetPenStyle(type(), true), hasScreen() ? result : 0);
        EXPECT_EQ(family().SetPenStyle(type(), false), hasScreen() ? result : 0);
        if (hasScreen()) {
            EXPECT_EQ(family().DisplayHWVersion(type(), true), result);
            EXPECT_EQ(family().DisplayHWVersion(type(), false), result);
            EXPECT_EQ(family().OpenLCD(type(), true), result);
            EXPECT_EQ(family().OpenLCD(type(), false), result);
            expected =
                "SetDevicePenStyle 1\nSetDevicePenStyle 0\nShowVersionInfoOnDevice 1\nShowVersionInfoOnDevice 0\n"
                "OpenDeviceLCD 1\nOpenDeviceLCD 0\n";
        }
        EXPECT_EQ(family().Clear(type()), result);
        EXPECT_EQ(pad.driver.calls(), expected + "ClearDeviceContent\n");
    }
}

TEST_P(DeviceSettings, PenWidthsOfOneToTenAreTakenWithoutTheDriver)
{
    OpenPad pad(GetParam());
    pad.driver.forgetCalls();
    for (int width = 1; width <= 10; ++width)
        EXPECT_EQ(family().SetPenWidth(type(), width), ARI_SUCCESS) << width;
    for (const int width : {0, 11, -1, INT_MIN, INT_MAX})
        EXPECT_EQ(family().SetPenWidth(type(), width), ARI_INVALID_PARAMETERS) << width;
    EXPECT_EQ(pad.driver.calls(), "");
}

TEST_P(DeviceSettings, ARefusedPenWidthSaysSo)
{
    OpenPad pad(GetParam());
    const std::string key = std::string(GetParam().className()) + "::SetDevicePenWidth()";
    const LogTail log;
    const LogOn on;
    family().SetPenWidth(type(), 11);
    family().SetPenWidth(type(), 10);
    EXPECT_EQ(messagesOf(log, key),
        (Lines{"<%ld>-enter, nPenWidth=11", "<%ld>-leave with ARI_INVALID_PARAMETERS since nPenWidth is out of range !",
            "<%ld>-enter, nPenWidth=10", "<%ld>-leave with nResult=0 !"}));
}

TEST_P(DeviceSettings, ThePenColourIsThatOfLaterStrokes)
{
    OpenPad pad(GetParam());
    pad.driver.forgetCalls();
    EXPECT_EQ(family().SetPenWidth(type(), 10), ARI_SUCCESS);
    EXPECT_EQ(family().SetPenColor(type(), 255, 0, 0), ARI_SUCCESS);
    pad.driver.send(stroke(type(), {{0.1, 0.25, 1}, {0.9, 0.25, 1}}));
    EXPECT_EQ(family().SetPenColor(type(), 12, 34, 56), ARI_SUCCESS);
    pad.driver.send(stroke(type(), {{0.1, 0.75, 1}, {0.9, 0.75, 1}}));
    EXPECT_EQ(pad.driver.calls(), "");
    const QImage canvas = pad.canvas();
    EXPECT_EQ(canvas.pixelColor(200, 50), QColor(255, 0, 0));
    EXPECT_EQ(canvas.pixelColor(200, 150), QColor(12, 34, 56));
    EXPECT_EQ(canvas.pixelColor(200, 100), QColor(Qt::white));
}

TEST_P(DeviceSettings, AnyPenColourIsTaken)
{
    OpenPad pad(GetParam());
    const LogTail log;
    const LogOn on;
    EXPECT_EQ(family().SetPenColor(type(), 256, 0, 0), ARI_SUCCESS);
    EXPECT_EQ(family().SetPenColor(type(), 0, INT_MIN, INT_MAX), ARI_SUCCESS);
    pad.driver.send(stroke(type(), {{0.1, 0.5, 1}, {0.9, 0.5, 1}}));
    EXPECT_EQ(family().GetTotalInkPointsNumber(type()), 3);
    // The one key without brackets.
    EXPECT_EQ(messagesOf(log, std::string(GetParam().className()) + "::SetDevicePenColor"),
        (Lines{"<%ld>-enter, nR=256, nG=0, nB=0", "<%ld>-leave with nResult=0 !",
            "<%ld>-enter, nR=0, nG=-2147483648, nB=2147483647", "<%ld>-leave with nResult=0 !"}));
}

TEST_P(DeviceSettings, SwitchingTheScreenOffEmptiesTheCanvasWhateverThePadAnswers)
{
    if (!hasScreen()) {
        EXPECT_EQ(family().OpenLCD, nullptr);
        return;
    }
    OpenPad pad(GetParam());
    QImage white(400, 200, QImage::Format_ARGB32);
    white.fill(Qt::white);
    for (const int result : {0, -7}) {
        pad.driver.send(stroke(type(), {{0.1, 0.5, 1}, {0.9, 0.5, 1}}));
        const int points = family().GetTotalInkPointsNumber(type());
        const QImage drawn = pad.canvas();
        ASSERT_NE(drawn, white);
        pad.driver.setResult("OpenDeviceLCD", result);
        EXPECT_EQ(family().OpenLCD(type(), true), result);
        EXPECT_EQ(pad.canvas(), drawn) << "switching on leaves it";
        EXPECT_EQ(family().OpenLCD(type(), false), result);
        EXPECT_EQ(pad.canvas(), white);
        EXPECT_EQ(family().GetTotalInkPointsNumber(type()), points) << "the points stay";
    }
}

TEST_P(DeviceSettings, ClearingEmptiesPadCanvasAndPoints)
{
    OpenPad pad(GetParam());
    for (const int result : {0, -7}) {
        pad.driver.send(stroke(type(), {{0.1, 0.5, 1}, {0.9, 0.5, 1}}));
        pad.driver.setResult("ClearDeviceContent", result);
        pad.driver.forgetCalls();
        EXPECT_EQ(family().Clear(type()), result);
        EXPECT_EQ(pad.driver.calls(), "ClearDeviceContent\n");
        EXPECT_EQ(family().GetTotalInkPointsNumber(type()), ARI_INK_EMPTY);
        // A point without ink, so that the canvas can be asked for.
        pad.driver.send(0, 0, 0, KVSPDARI_PS_PEN_DOWN);
        QImage white(400, 200, QImage::Format_ARGB32);
        white.fill(Qt::white);
        EXPECT_EQ(pad.canvas(), white);
    }
}

INSTANTIATE_TEST_SUITE_P(AllPads, DeviceSettings, testing::ValuesIn(allPads()), padCaseName);

} // namespace
