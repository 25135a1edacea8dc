// Receivers that call the library's own functions on the driver's thread: nothing deadlocks, and each call works.
#include "returnedtext.h"

#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <unistd.h>

namespace {

std::function<void(const QByteArray &)> whenPushed;
std::function<void(int)> whenTapped;

void receiveText(char *text)
{
    whenPushed(text);
}
void receiveTap(int event)
{
    whenTapped(event);
}

// Aborts the process on a deadlock instead of hanging.
class WithAlarm : public testing::TestWithParam<PadCase>
{
protected:
    WithAlarm() { ::alarm(60); }
    ~WithAlarm() override { ::alarm(0); }

    /// Every function that a caller asks or takes something by, with what it should answer while points are stored.
    void useEverything()
    {
        const int type = pad.type();
        EXPECT_GT(pad->GetTotalInkPointsNumber(type), 0);
        INKPOINTDATA point{};
        EXPECT_EQ(pad->GetInkPointData(type, point), ARI_SUCCESS);
        char *time = pad->GetInkPointDataTimeInfo(type, 0);
        EXPECT_NE(time, nullptr);
        pad->FreeInkPointDataTimeInfo(type, time);
        bool connected = false;
        EXPECT_EQ(pad->GetDeviceInfo(type, DIID_GET_STATUS, &connected), ARI_SUCCESS);
        EXPECT_TRUE(connected);
        char version[64] = "";
        EXPECT_EQ(pad->GetHWVersion(type, version, sizeof version), ARI_SUCCESS);
        EXPECT_NE(QByteArray(version), "");
        takeTexts();
        saveFiles();
        EXPECT_EQ(pad->SetPenStyle(type, true), ARI_SUCCESS);
        EXPECT_EQ(pad->SetPenWidth(type, 5), ARI_SUCCESS);
        EXPECT_EQ(pad->SetPenColor(type, 10, 20, 30), ARI_SUCCESS);
        EXPECT_EQ(pad->SetSaveClipImageMargin(type, true, 3, 4), ARI_SUCCESS);
        EXPECT_NE(textOf(pad, EBITI_PNG).text(), "");
        EXPECT_EQ(pad->SetSaveClipImageMargin(type, false, 0, 0), ARI_SUCCESS);
    }
    void clear()
    {
        EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
        EXPECT_TRUE(textOf(pad, EBITI_PNG).isNull());
    }

    OpenPad pad{GetParam(), 160, 100};
    QTemporaryDir directory;

private:
    void takeTexts()
    {
        for (const int type : {1, 2, 3})
            EXPECT_FALSE(textOf(pad, type).text().isEmpty()) << type;
        EXPECT_FALSE(svgTextOf(pad).text().isEmpty());
        EXPECT_FALSE(exTextOf(pad, 3, false).text().isEmpty());
        const Text ink = textOf(pad, EBITI_INK);
        EXPECT_EQ(pad->Base64Decode(pad.type(), EBITI_INK, ink.pointer(), nullptr), ARI_SUCCESS);
        EXPECT_EQ(pad->GetTotalDecodeInkPointsNumber(pad.type()), pad->GetTotalInkPointsNumber(pad.type()));
    }
    void saveFiles()
    {
        const std::pair<int, const char *> files[] = {
            {1, "a.bmp"}, {2, "a.jpg"}, {3, "a.png"}, {7, "a.pdf"}, {8, "a.svg"}};
        for (const auto &[type, name] : files) {
            std::wstring path = directory.filePath(name).toStdWString();
            EXPECT_EQ(pad->SaveDrawingImage(pad.type(), type, path.data(), IDLI_150DPI), ARI_SUCCESS) << name;
            EXPECT_TRUE(QFile::exists(directory.filePath(name))) << name;
        }
    }
};

class PushReceiver : public WithAlarm
{
protected:
    PushReceiver() { EXPECT_TRUE(push(EBITI_PNG)); }
    static bool push(int type) { return KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, type, receiveText); }
    void move() { pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}, {710, 800, 300, 1}, {1, 1, 1, 2}}); }
};

class TapReceiver : public WithAlarm
{
};

std::vector<PadCase> bothHosts()
{
    return {{&kS210Family, false}, {&kS210Family, true}};
}

} // namespace

TEST_P(PushReceiver, AsksSetsAndSaves)
{
    int pushes = 0;
    whenPushed = [&](const QByteArray &) {
        ++pushes;
        useEverything();
    };
    move();
    EXPECT_EQ(pushes, 2);
}

TEST_P(PushReceiver, EncodesTheSamePicture)
{
    int equal = 0;
    whenPushed = [&](const QByteArray &text) { equal += text == textOf(pad, EBITI_PNG).text() ? 1 : 0; };
    move();
    EXPECT_EQ(equal, 2);
}

TEST_P(PushReceiver, ClearsAndRegistersAnew)
{
    std::vector<bool> isPng;
    whenPushed = [&](const QByteArray &text) {
        isPng.push_back(QByteArray::fromBase64(text).startsWith("\x89PNG"));
        clear();
        EXPECT_TRUE(push(isPng.size() % 2 == 1 ? EBITI_JPEG : EBITI_PNG));
    };
    move();
    move();
    EXPECT_EQ(isPng, (std::vector<bool>{true, false, true, false}));
    // The last move cleared; pen up after it finds no point to close.
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
}

TEST_P(PushReceiver, UsesTheScreenAndTheOfficeCanvas)
{
    int pushes = 0;
    const bool headless = GetParam().headless;
    whenPushed = [&](const QByteArray &) {
        ++pushes;
        EXPECT_EQ(KVS210_InitialWPSSignCanvas(KVS210_DEVICE, 30, 20), headless);
        char *text = KVS210_WPSBase64Encode(KVS210_DEVICE, EBITI_PNG);
        EXPECT_EQ(text != nullptr, headless);
        KVS210_WPSBase64EncodeFree(KVS210_DEVICE, text);
        EXPECT_EQ(KVS210_DisplayHWVersion(KVS210_DEVICE, true), ARI_SUCCESS);
        EXPECT_EQ(KVS210_OpenLCD(KVS210_DEVICE, true), ARI_SUCCESS);
    };
    move();
    EXPECT_EQ(pushes, 2);
}

TEST_P(TapReceiver, AsksSetsSavesAndClears)
{
    std::vector<int> taps;
    whenTapped = [&](int event) {
        taps.push_back(event);
        useEverything();
        clear();
    };
    ASSERT_EQ(pad->SignPadEventCallback(pad.type(), receiveTap), ARI_SUCCESS);
    for (const int status : {KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON, KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON}) {
        pad.driver.send(twoStrokes(pad.type()));
        pad.driver.send(0, 0, 0, status);
    }
    EXPECT_EQ(taps, (std::vector<int>{1, 0}));
}

TEST_P(TapReceiver, SwitchesItselfOff)
{
    int taps = 0;
    whenTapped = [&](int) {
        ++taps;
        EXPECT_EQ(pad->SignPadEventCallback(pad.type(), nullptr), ARI_SUCCESS);
    };
    ASSERT_EQ(pad->SignPadEventCallback(pad.type(), receiveTap), ARI_SUCCESS);
    pad.driver.send({{0, 0, 0, 4}, {0, 0, 0, 4}, {0, 0, 0, 3}});
    EXPECT_EQ(taps, 1);
}

INSTANTIATE_TEST_SUITE_P(BothHosts, PushReceiver, testing::ValuesIn(bothHosts()), padCaseName);
INSTANTIATE_TEST_SUITE_P(AllPads, TapReceiver, testing::ValuesIn(allPads()), padCaseName);
