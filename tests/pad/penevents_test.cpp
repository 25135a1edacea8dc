// Taps on the pad's confirm and cancel buttons: the caller's receiver, the latched key, the mark for the next clear.
#include "openpad.h"
#include "paddifferences.h"

#include <QTemporaryDir>

#include <functional>
#include <mutex>
#include <thread>

namespace {

constexpr int kCancel = KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON;
constexpr int kConfirm = KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON;

struct Events
{
    std::mutex mutex;
    std::vector<int> values;
    std::vector<std::thread::id> threads;
    std::function<void(int)> onEvent;
};
Events events;

void receive(int value)
{
    {
        const std::lock_guard<std::mutex> lock(events.mutex);
        events.values.push_back(value);
        events.threads.push_back(std::this_thread::get_id());
    }
    if (events.onEvent)
        events.onEvent(value);
}

void receiveElsewhere(int value)
{
    receive(value + 100);
}

class PenEvents : public testing::TestWithParam<PadCase>
{
protected:
    PenEvents()
    {
        events.values.clear();
        events.threads.clear();
        events.onEvent = nullptr;
    }
    ~PenEvents() override { events.onEvent = nullptr; }
};

TEST_P(PenEvents, ReachTheReceiverOnTheDriversThread)
{
    OpenPad pad(GetParam());
    pad.driver.send(0, 0, 0, kConfirm);
    EXPECT_TRUE(events.values.empty()) << "no receiver is set";
    EXPECT_EQ(pad->SignPadEventCallback(pad.type(), receive), ARI_SUCCESS);
    pad.driver.send({{0, 0, 0, kConfirm}, {5, 5, 5, kCancel}, {0, 0, 0, kConfirm}});
    EXPECT_EQ(events.values, (std::vector<int>{1, 0, 1}));
    EXPECT_EQ(pad->SignPadEventCallback(pad.type(), receiveElsewhere), ARI_SUCCESS);
    pad.driver.send(0, 0, 0, kCancel);
    EXPECT_EQ(events.values.back(), 100);
    EXPECT_EQ(pad->SignPadEventCallback(pad.type(), nullptr), ARI_SUCCESS);
    pad.driver.send({{0, 0, 0, kConfirm}, {0, 0, 0, kCancel}});
    EXPECT_EQ(events.values.size(), 4U);
    for (const std::thread::id &thread : events.threads) {
        EXPECT_NE(thread, std::this_thread::get_id());
        EXPECT_EQ(thread, events.threads.front());
    }
}

TEST_P(PenEvents, OfOtherPacketsAreNone)
{
    OpenPad pad(GetParam());
    pad->SignPadEventCallback(pad.type(), receive);
    pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
    pad.driver.send({{0, 0, 0, 5}, {0, 0, 0, -1}});
    EXPECT_TRUE(events.values.empty());
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), -1);
}

TEST_P(PenEvents, AreLatchedUntilTheyAreAskedFor)
{
    OpenPad pad(GetParam());
    const auto key = [&] { return pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()); };
    EXPECT_EQ(key(), -1);
    pad.driver.send(0, 0, 0, kConfirm);
    EXPECT_EQ(key(), 1);
    EXPECT_EQ(key(), -1);
    pad.driver.send(0, 0, 0, kCancel);
    EXPECT_EQ(key(), 0);
    EXPECT_EQ(key(), -1);
    pad.driver.send({{0, 0, 0, kCancel}, {0, 0, 0, kConfirm}});
    EXPECT_EQ(key(), 1) << "the last tap counts";
    pad.driver.send({{0, 0, 0, kConfirm}, {0, 0, 0, kCancel}});
    EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
    EXPECT_EQ(key(), 0) << "clearing does not take it";
    EXPECT_EQ(key(), -1);
}

TEST_P(PenEvents, AreLatchedAfterTheReceiverReturned)
{
    OpenPad pad(GetParam());
    std::vector<int> seen;
    events.onEvent = [&](int) { seen.push_back(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type())); };
    pad->SignPadEventCallback(pad.type(), receive);
    pad.driver.send({{0, 0, 0, kConfirm}, {0, 0, 0, kCancel}});
    EXPECT_EQ(seen, (std::vector<int>{-1, 1}));
    EXPECT_EQ(pad->GetDeviceConfirmOrCancelKeyStatus(pad.type()), 0);
}

TEST_P(PenEvents, EndAStrokeWithoutClosingIt)
{
    OpenPad pad(GetParam());
    const std::vector<KVSIM_PACKET> whole = stroke(pad.type(), {{0.1, 0.1, 0.2}, {0.5, 0.5, 0.2}, {0.9, 0.9, 0.2}});
    for (const int tap : {kConfirm, kCancel}) {
        EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS);
        pad.driver.send({whole[0], whole[1]});
        const QImage drawn = pad.canvas();
        pad.driver.send({{0, 0, 0, tap}, whole[2], whole[3]});
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 2) << "neither the move nor the pen up counts";
        EXPECT_EQ(pad.canvas(), drawn);
        INKPOINTDATA last = {};
        last.nIndex = 1;
        EXPECT_EQ(pad->GetInkPointData(pad.type(), last), ARI_SUCCESS);
        EXPECT_FALSE(last.bStrokeEnd);
    }
}

TEST_P(PenEvents, OfACancelKeepTheNextClearFromThePad)
{
    OpenPad pad(GetParam());
    pad.driver.setResult("ClearDeviceContent", -7);
    struct Case
    {
        int tap;
        bool marks;
    };
    for (const Case &tested : {Case{kCancel, true}, Case{kConfirm, differenceOf(GetParam()).confirmMarks}}) {
        pad.driver.send(stroke(pad.type(), {{0.1, 0.1, 0.5}, {0.9, 0.9, 0.5}}));
        pad.driver.send(0, 0, 0, tested.tap);
        pad.driver.forgetCalls();
        EXPECT_EQ(pad->Clear(pad.type()), tested.marks ? ARI_SUCCESS : -7);
        EXPECT_EQ(pad.driver.calls(), tested.marks ? "" : "ClearDeviceContent\n");
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY);
        pad.driver.forgetCalls();
        EXPECT_EQ(pad->Clear(pad.type()), -7) << "only the next one";
        EXPECT_EQ(pad.driver.calls(), "ClearDeviceContent\n");
    }
}

TEST_P(PenEvents, AreMarkedBeforeTheReceiverClears)
{
    OpenPad pad(GetParam());
    std::vector<int> results;
    events.onEvent = [&](int) { results.push_back(pad->Clear(pad.type())); };
    pad->SignPadEventCallback(pad.type(), receive);
    pad.driver.setResult("ClearDeviceContent", -7);
    pad.driver.send({{0, 0, 0, kCancel}, {0, 0, 0, kConfirm}});
    EXPECT_EQ(results, (std::vector<int>{0, differenceOf(GetParam()).confirmMarks ? 0 : -7}));
    events.onEvent = nullptr;
    EXPECT_EQ(pad->Clear(pad.type()), -7) << "no mark is left";
}

TEST_P(PenEvents, LetTheReceiverCallTheLibrary)
{
    OpenPad pad(GetParam());
    const Family &family = *GetParam().family;
    const int type = pad.type();
    const QTemporaryDir directory;
    int answered = 0;
    events.onEvent = [&](int) {
        EXPECT_EQ(family.GetTotalInkPointsNumber(type), 4);
        INKPOINTDATA point = {};
        EXPECT_EQ(family.GetInkPointData(type, point), ARI_SUCCESS);
        char *time = family.GetInkPointDataTimeInfo(type, 0);
        EXPECT_NE(time, nullptr);
        family.FreeInkPointDataTimeInfo(type, time);
        for (const int kind : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK}) {
            char *text = family.Base64Encode(type, kind);
            EXPECT_NE(text, nullptr) << kind;
            family.Base64EncodeFree(type, text);
        }
        char *svg = family.GetSVGImageBase64Data(type);
        EXPECT_NE(svg, nullptr);
        family.FreeSVGImageBase64Data(type, svg);
        std::wstring path = directory.filePath("sign.png").toStdWString();
        EXPECT_EQ(family.SaveDrawingImage(type, ITI_PNG, path.data(), IDLI_150DPI), ARI_SUCCESS);
        char id[32];
        EXPECT_EQ(family.GetHWPadID(type, id, sizeof id), ARI_SUCCESS);
        EXPECT_EQ(family.SetPenWidth(type, 5), ARI_SUCCESS);
        EXPECT_EQ(family.SetPenColor(type, 1, 2, 3), ARI_SUCCESS);
        EXPECT_EQ(family.SetPenStyle(type, false), ARI_SUCCESS);
        EXPECT_EQ(family.SetSaveClipImageMargin(type, true, 5, 5), ARI_SUCCESS);
        EXPECT_EQ(family.SignPadEventCallback(type, receive), ARI_SUCCESS);
        EXPECT_EQ(family.OpenLCD == nullptr ? ARI_SUCCESS : family.OpenLCD(type, false), ARI_SUCCESS);
        EXPECT_EQ(family.Clear(type), ARI_SUCCESS);
        ++answered;
    };
    family.SignPadEventCallback(type, receive);
    for (const int tap : {kConfirm, kCancel}) {
        pad.driver.send(stroke(type, {{0.1, 0.1, 0.5}, {0.5, 0.3, 0.5}, {0.9, 0.9, 0.5}}));
        pad.driver.send(0, 0, 0, tap);
        settle();
    }
    EXPECT_EQ(answered, 2);
}

TEST_P(PenEvents, GoOnWhileTheCallerAsksSetsAndClears)
{
    OpenPad pad(GetParam());
    const Family &family = *GetParam().family;
    const int type = pad.type();
    family.SignPadEventCallback(type, receive);
    std::thread signer([&] {
        for (int round = 0; round < 40; ++round) {
            pad.driver.send(stroke(type, {{0.1, 0.1, 0.5}, {0.5, 0.9, 0.5}, {0.9, 0.1, 0.5}}));
            pad.driver.send(0, 0, 0, round % 2 == 0 ? kConfirm : kCancel);
        }
    });
    int keys = 0;
    for (int round = 0; round < 200; ++round) {
        family.SetPenWidth(type, 1 + round % 10);
        family.SetPenColor(type, round % 256, 0, 0);
        family.SetPenStyle(type, round % 2 == 0);
        keys += family.GetDeviceConfirmOrCancelKeyStatus(type) >= 0 ? 1 : 0;
        int pressure = 0;
        family.GetDeviceInfo(type, DIID_GET_PRESSURE, &pressure);
        EXPECT_EQ(pressure, rawArea(type).maxPressure);
        family.Clear(type);
        if (pad.widget() != nullptr && round % 20 == 0)
            pad.widget()->resize(400 - round, 200);
        settle();
    }
    signer.join();
    keys += family.GetDeviceConfirmOrCancelKeyStatus(type) >= 0 ? 1 : 0;
    EXPECT_EQ(events.values.size(), 40U);
    EXPECT_GE(keys, 1);
    EXPECT_LE(keys, 40) << "no tap is reported twice";
}

INSTANTIATE_TEST_SUITE_P(AllPads, PenEvents, testing::ValuesIn(allPads()), padCaseName);

} // namespace
