// The whole signature to the caller's receiver after every pen movement.
#include "returnedtext.h"

#include <climits>
#include <mutex>
#include <thread>

namespace {

// Receivers are plain functions, so they keep what they got in globals.
struct Received
{
    std::mutex mutex;
    std::vector<QByteArray> texts;
    std::vector<std::thread::id> threads;
    int events = 0;

    void clear()
    {
        const std::lock_guard<std::mutex> locked(mutex);
        texts.clear();
        threads.clear();
        events = 0;
    }
    size_t count()
    {
        const std::lock_guard<std::mutex> locked(mutex);
        return texts.size();
    }
};

Received first;
Received second;

void take(Received &received, const char *text)
{
    const std::lock_guard<std::mutex> locked(received.mutex);
    received.texts.emplace_back(text);
    received.threads.push_back(std::this_thread::get_id());
}

void receiveFirst(char *text)
{
    take(first, text);
}
void receiveSecond(char *text)
{
    take(second, text);
}

void receiveEvent(int)
{
    const std::lock_guard<std::mutex> locked(first.mutex);
    ++first.events;
    first.threads.push_back(std::this_thread::get_id());
}

class LivePush : public testing::TestWithParam<PadCase>
{
protected:
    LivePush()
    {
        first.clear();
        second.clear();
        EXPECT_TRUE(pad.isOpen());
    }
    bool push(int type, SIGNPAD_SIGN_BASE64_DATA_CALLBACK receiver, int device = KVS210_DEVICE)
    {
        return KVS210_SetRealTimeSignBase64DataCallback(device, type, receiver);
    }

    OpenPad pad{GetParam(), 160, 100};
};

std::vector<PadCase> bothHosts()
{
    return {{&kS210Family, false}, {&kS210Family, true}};
}

const std::vector<KVSIM_PACKET> kMoves = {
    {700, 700, 900, 1}, {800, 650, 2048, 1}, {900, 900, 0, 1}, {901, 1100, 30, 1}};

} // namespace

TEST_P(LivePush, EveryAcceptedMovePushesTheWholeSignature)
{
    for (const int type : {EBITI_JPEG, EBITI_PNG}) {
        first.clear();
        ASSERT_TRUE(push(type, receiveFirst));
        pad.driver.send(600, 600, 500, KVSPDARI_PS_PEN_DOWN);
        EXPECT_EQ(first.count(), 0u);
        size_t pushes = 0;
        for (const KVSIM_PACKET &move : kMoves) {
            pad.driver.send({move});
            ASSERT_EQ(first.count(), ++pushes);
            EXPECT_EQ(first.texts.back(), textOf(pad, type).text());
            EXPECT_EQ(QImage::fromData(QByteArray::fromBase64(first.texts.back())).size(), QSize(160, 100));
        }
        pad.driver.send(901, 1100, 30, KVSPDARI_PS_PEN_UP);
        EXPECT_EQ(first.count(), kMoves.size());
    }
}

TEST_P(LivePush, PushesThePictureThatTheTestDraws)
{
    ASSERT_TRUE(push(EBITI_PNG, receiveFirst));
    InkPicture picture(GetParam(), 160, 100);
    const auto packets = twoStrokes(pad.type());
    pad.driver.send(packets);
    size_t pushes = 0;
    for (const KVSIM_PACKET &packet : packets) {
        picture.play({packet});
        if (packet.status != KVSPDARI_PS_PEN_MOVE)
            continue;
        ASSERT_LT(pushes, first.texts.size());
        const QImage expected = whiteMadeTransparent(picture.image);
        EXPECT_EQ(first.texts[pushes++], base64::encoded(fileOf(expected, "PNG")));
    }
    EXPECT_EQ(pushes, first.texts.size());
    EXPECT_EQ(pushes, 5u);
}

// Long enough to use everything that pushes keep between images. Nothing that happens in between may show.
TEST_P(LivePush, EachPushIsAFileOfItsOwnThroughClearsColoursAndClips)
{
    ASSERT_TRUE(push(EBITI_PNG, receiveFirst));
    InkPicture picture(GetParam(), 160, 100);
    for (unsigned round = 0; round < 8; ++round) {
        picture.pen.colour = QColor(30 * static_cast<int>(round), 20, 200);
        setPen(pad, picture.pen);
        if (round == 3 || round == 6) {
            pad->Clear(pad.type());
            picture.image.fill(Qt::white);
        }
        if (round % 4 == 1)
            textOf(pad, EBITI_PNG);
        pad->SetSaveClipImageMargin(pad.type(), round % 3 == 2, 1, 1);
        for (const KVSIM_PACKET &packet : scribble(pad.type(), round, 25)) {
            first.clear();
            pad.driver.send({packet});
            picture.play({packet});
            if (first.count() == 0)
                continue;
            const QRect part = inkOf(picture.image).adjusted(-1, -1, 1, 1).intersected(picture.image.rect());
            const QImage shown = round % 3 == 2 ? picture.image.copy(part) : picture.image;
            ASSERT_EQ(first.texts[0], base64::encoded(fileOf(whiteMadeTransparent(shown), "PNG"))) << round;
        }
    }
}

TEST_P(LivePush, NothingButAnAcceptedMovePushes)
{
    ASSERT_TRUE(push(EBITI_PNG, receiveFirst));
    pad.driver.send({{600, 600, 10, 1}, {600, 600, 10, 2}}); // no stroke is open
    pad.driver.send(600, 600, 500, KVSPDARI_PS_PEN_DOWN);
    pad.driver.send({{610, 600, 2049, 1}, {620, 600, INT_MAX, 1}, {620, 600, 9, 5}, {620, 600, 9, -1}});
    pad.driver.send({{630, 600, 9, 2}, {1, 1, 1, 3}, {600, 600, 500, 0}, {1, 1, 1, 4}, {600, 600, 500, 1}});
    EXPECT_EQ(first.count(), 0u);
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 2048, 1}});
    EXPECT_EQ(first.count(), 1u);
}

TEST_P(LivePush, RefusedRegistrationsLeaveTheEarlierInPlace)
{
    EXPECT_FALSE(push(EBITI_BITMAP, receiveFirst));
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    EXPECT_EQ(first.count(), 0u);
    ASSERT_TRUE(push(EBITI_JPEG, receiveFirst));
    for (const int type : {INT_MIN, -1, 0, 1, 4, 5, 6, 7, INT_MAX})
        EXPECT_FALSE(push(type, receiveSecond)) << type;
    EXPECT_FALSE(push(EBITI_PNG, nullptr));
    EXPECT_FALSE(push(EBITI_BITMAP, nullptr));
    for (const int device : {0, -1, 1, 3, 4, 5, 7, INT_MAX})
        EXPECT_FALSE(push(EBITI_PNG, receiveSecond, device)) << device;
    pad.driver.send(800, 800, 900, KVSPDARI_PS_PEN_MOVE);
    EXPECT_EQ(second.count(), 0u);
    ASSERT_EQ(first.count(), 1u);
    EXPECT_EQ(first.texts[0], textOf(pad, EBITI_JPEG).text());
}

TEST_P(LivePush, LaterRegistrationReplacesTheEarlier)
{
    ASSERT_TRUE(push(EBITI_JPEG, receiveFirst));
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    ASSERT_TRUE(push(EBITI_PNG, receiveSecond));
    pad.driver.send(800, 800, 900, KVSPDARI_PS_PEN_MOVE);
    EXPECT_EQ(first.count(), 1u);
    ASSERT_EQ(second.count(), 1u);
    EXPECT_EQ(second.texts[0], textOf(pad, EBITI_PNG).text());
}

TEST_P(LivePush, FollowsTheClipMargins)
{
    ASSERT_TRUE(push(EBITI_PNG, receiveFirst));
    pad->SetSaveClipImageMargin(pad.type(), true, 3, 2);
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    ASSERT_EQ(first.count(), 1u);
    EXPECT_EQ(first.texts[0], textOf(pad, EBITI_PNG).text());
    EXPECT_LT(QImage::fromData(QByteArray::fromBase64(first.texts[0])).width(), 60);
    // An empty text is still a text.
    pad->Clear(pad.type());
    pad->SetSaveClipImageMargin(pad.type(), true, 3, 2);
    pad->SetPenColor(pad.type(), 255, 255, 255);
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    ASSERT_EQ(first.count(), 2u);
    EXPECT_EQ(first.texts[1], "");
}

TEST_P(LivePush, RunsOnTheDriversThread)
{
    ASSERT_TRUE(push(EBITI_JPEG, receiveFirst));
    ASSERT_EQ(pad->SignPadEventCallback(pad.type(), receiveEvent), ARI_SUCCESS);
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}, {1, 1, 1, 4}});
    ASSERT_EQ(first.threads.size(), 2u);
    EXPECT_EQ(first.events, 1);
    EXPECT_EQ(first.threads[0], first.threads[1]);
    EXPECT_NE(first.threads[0], std::this_thread::get_id());
}

TEST_P(LivePush, StaysOnThroughAClearAndIsOffInANewInstance)
{
    ASSERT_TRUE(push(EBITI_JPEG, receiveFirst));
    pad->Clear(pad.type());
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    EXPECT_EQ(first.count(), 1u);
    ASSERT_EQ(pad->UnInitialDevice(pad.type()), ARI_SUCCESS);
    EXPECT_FALSE(push(EBITI_JPEG, receiveFirst));
    settle();
    ASSERT_TRUE(pad->InitialDevice(pad.type(), pad.window(), 0, 0, 160, 100));
    settle();
    pad.driver.send({{600, 600, 500, 0}, {700, 700, 900, 1}});
    EXPECT_EQ(first.count(), 1u);
}

INSTANTIATE_TEST_SUITE_P(BothHosts, LivePush, testing::ValuesIn(bothHosts()), padCaseName);
