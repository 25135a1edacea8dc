// Which call takes which lock: while the test holds a lock, calls that take it wait and the others return. No lock is
// held while a receiver runs or a fingerprint is sent to the pad's screen.
#include "insidepads.h"
#include "lockholder.h"
#include "patience.h"

#include <QTemporaryDir>

#include <functional>

namespace {

using namespace std::chrono_literals;

/// Where a call is made: an open pad with a point, and a directory for files.
struct Scene
{
    OpenPad &pad;
    const PadCase &padCase;
    QString directory;
};

struct Call
{
    const char *name;
    std::function<void(const Scene &)> make;
};

void save(const Scene &scene, int type, const char *name)
{
    std::wstring path = (scene.directory + name).toStdWString();
    scene.pad->SaveDrawingImage(scene.pad.type(), type, path.data(), IDLI_150DPI);
}

void encode(const Scene &scene, int type)
{
    scene.pad->Base64EncodeFree(scene.pad.type(), scene.pad->Base64Encode(scene.pad.type(), type));
}

void sendAt(const Scene &scene, int pressure, int status)
{
    const RawArea area = rawArea(scene.pad.type());
    scene.pad.driver.send(area.offsetX + 20, area.offsetY + 10, pressure, status);
}

template <class Member>
void inside(const Scene &scene, Member member)
{
    withOpenInstance(scene.padCase, member);
}

const std::vector<Call> kCanvasCalls{
    {"a move", [](const Scene &scene) { sendAt(scene, 100, KVSPDARI_PS_PEN_MOVE); }},
    {"Clear", [](const Scene &scene) { scene.pad->Clear(scene.pad.type()); }},
    {"ClearSignCanvas", [](const Scene &scene) { inside(scene, [](auto &pad) { pad.ClearSignCanvas(); }); }},
    {"Base64Encode", [](const Scene &scene) { encode(scene, EBITI_BITMAP); }},
    {"Base64EncodeEx",
        [](const Scene &scene) {
            const int type = scene.pad.type();
            scene.pad->Base64EncodeExFree(type, scene.pad->Base64EncodeEx(type, EBITI_JPEG, false));
        }},
};

const std::vector<Call> kWidgetCanvasCalls{
    {"a resize", [](const Scene &scene) { scene.pad.widget()->resize(scene.pad.widget()->size() + QSize(1, 1)); }},
    {"a repaint", [](const Scene &scene) { scene.pad.widget()->repaint(); }},
};

// The files are written and the points are asked for without the canvas lock; pen down, up and taps do not draw.
const std::vector<Call> kOtherCalls{
    {"pen down", [](const Scene &scene) { sendAt(scene, 100, KVSPDARI_PS_PEN_DOWN); }},
    {"pen up", [](const Scene &scene) { sendAt(scene, 100, KVSPDARI_PS_PEN_UP); }},
    {"a tap", [](const Scene &scene) { sendAt(scene, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON); }},
    {"a BMP file", [](const Scene &scene) { save(scene, ITI_BITMAP, "/a.bmp"); }},
    {"a PDF file", [](const Scene &scene) { save(scene, ITI_PDF, "/a.pdf"); }},
    {"an SVG file", [](const Scene &scene) { save(scene, ITI_SVG, "/a.svg"); }},
    {"an ink record", [](const Scene &scene) { encode(scene, EBITI_INK); }},
    {"an SVG text",
        [](const Scene &scene) {
            scene.pad->FreeSVGImageBase64Data(scene.pad.type(), scene.pad->GetSVGImageBase64Data(scene.pad.type()));
        }},
    {"the number of points", [](const Scene &scene) { scene.pad->GetTotalInkPointsNumber(scene.pad.type()); }},
    {"the pen", [](const Scene &scene) { scene.pad->SetPenColor(scene.pad.type(), 1, 2, 3); }},
    {"the clip", [](const Scene &scene) { scene.pad->SetSaveClipImageMargin(scene.pad.type(), true, 1, 1); }},
    {"CheckSignImageBoundingBox",
        [](const Scene &scene) {
            inside(scene, [](auto &pad) {
                QRect box;
                pad.CheckSignImageBoundingBox(box);
            });
        }},
};

/// The receivers look whether all locks are free.
PadCase receiverPad;
int receivers = 0;

void tapped(int)
{
    ++receivers;
    withOpenInstance(receiverPad, [](auto &pad) { expectAllFree(pad); });
}

void pushed(char *)
{
    tapped(0);
}

class LockUse : public testing::TestWithParam<PadCase>
{
protected:
    LockUse()
        : pad(GetParam(), 60, 40)
        , scene{pad, GetParam(), directory.path()}
    {
        sendAt(scene, 100, KVSPDARI_PS_PEN_DOWN);
        settle();
        receiverPad = GetParam();
        receivers = 0;
    }

    template <class Locked, class Mutex>
    void expectWaits(Mutex &mutex, const Call &call)
    {
        Holder<Locked> holder(mutex, 20ms);
        call.make(scene);
        EXPECT_TRUE(holder.hasReleased()) << call.name << " did not wait for the lock";
        holder.finish();
    }

    template <class Locked, class Mutex>
    void expectReturns(Mutex &mutex, const Call &call)
    {
        Holder<Locked> holder(mutex, kPatience);
        call.make(scene);
        EXPECT_FALSE(holder.hasReleased()) << call.name << " waited for the lock";
        holder.finish();
    }

    void makeStroke()
    {
        sendAt(scene, 100, KVSPDARI_PS_PEN_UP);
        pad.driver.send(stroke(pad.type(), {{0.2, 0.2, 0.3}, {0.4, 0.6, 0.3}, {0.8, 0.4, 0.3}}));
        sendAt(scene, 100, KVSPDARI_PS_PEN_DOWN);
    }

    QTemporaryDir directory;
    OpenPad pad;
    const Scene scene;
};

using Locked = std::lock_guard<std::mutex>;

} // namespace

TEST_P(LockUse, TakesTheCanvasLockForWhatTouchesTheCanvas)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        for (const Call &call : kCanvasCalls) {
            makeStroke();
            expectWaits<MutexLock>(inner.m_mutexUpdateCanvas, call);
        }
        for (const Call &call : GetParam().headless ? std::vector<Call>() : kWidgetCanvasCalls)
            expectWaits<MutexLock>(inner.m_mutexUpdateCanvas, call);
    });
}

TEST_P(LockUse, TakesTheCanvasLockForNothingElse)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        for (const Call &call : kOtherCalls)
            expectReturns<MutexLock>(inner.m_mutexUpdateCanvas, call);
    });
}

TEST_P(LockUse, KeepsFilesFromReadingAHalfDrawnCanvas)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        makeStroke();
        expectWaits<Locked>(inner.m_internals.pixelsLock, {"a move", kCanvasCalls[0].make});
        for (const char *name : {"a BMP file", "a PDF file", "an SVG text", "CheckSignImageBoundingBox"}) {
            for (const Call &call : kOtherCalls) {
                if (QLatin1String(call.name) == QLatin1String(name))
                    expectWaits<Locked>(inner.m_internals.pixelsLock, call);
            }
        }
    });
}

TEST_P(LockUse, TakesTheInkLockForPointsOnly)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        expectWaits<Locked>(inner.m_internals.inkLock, kOtherCalls[0]);
        expectWaits<Locked>(inner.m_internals.inkLock,
            {"the number of points", [](const Scene &at) { at.pad->GetTotalInkPointsNumber(at.pad.type()); }});
        expectWaits<Locked>(
            inner.m_internals.inkLock, {"an ink record", [](const Scene &at) { encode(at, EBITI_INK); }});
        expectReturns<Locked>(inner.m_internals.inkLock,
            {"ClearSignCanvas", [](const Scene &at) { inside(at, [](auto &it) { it.ClearSignCanvas(); }); }});
        expectReturns<Locked>(inner.m_internals.inkLock,
            {"the key", [](const Scene &at) { at.pad->GetDeviceConfirmOrCancelKeyStatus(at.pad.type()); }});
    });
}

TEST_P(LockUse, HoldsNoLockOverTheReceiverOfTaps)
{
    pad->SignPadEventCallback(pad.type(), tapped);
    sendAt(scene, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON);
    sendAt(scene, 0, KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON);
    EXPECT_EQ(receivers, 2);
}

INSTANTIATE_TEST_SUITE_P(AllPads, LockUse, testing::ValuesIn(allPads()), padCaseName);

class LivePushLockUse : public LockUse
{
};

TEST_P(LivePushLockUse, HoldsNoLockOverTheReceiver)
{
    ASSERT_TRUE(KVS210_SetRealTimeSignBase64DataCallback(pad.type(), EBITI_PNG, pushed));
    sendAt(scene, 100, KVSPDARI_PS_PEN_MOVE);
    EXPECT_EQ(receivers, 1);
}

TEST_P(LivePushLockUse, TakesTheCanvasLockForTheOfficeCanvas)
{
    if (GetParam().headless) {
        withOpenInstance(GetParam(), [this](auto &inner) {
            expectWaits<MutexLock>(inner.m_mutexUpdateCanvas,
                {"InitialWPSSignCanvas", [](const Scene &at) { KVS210_InitialWPSSignCanvas(at.pad.type(), 30, 20); }});
            expectWaits<MutexLock>(inner.m_mutexUpdateCanvas,
                {"WPSBase64Encode", [](const Scene &at) {
                     KVS210_WPSBase64EncodeFree(at.pad.type(), KVS210_WPSBase64Encode(at.pad.type(), EBITI_PNG));
                 }});
        });
    }
}

INSTANTIATE_TEST_SUITE_P(
    S210, LivePushLockUse, testing::Values(PadCase{&kS210Family, false}, PadCase{&kS210Family, true}), padCaseName);

class FingerprintLockUse : public LockUse
{
protected:
    FingerprintLockUse() { setScreenDelay(100); }

    void setScreenDelay(int ms)
    {
        reinterpret_cast<decltype(&KVSIM_SetScreenDelay)>(pad.driver.control("KVSIM_SetScreenDelay"))(ms);
    }

    void sendFingerprint()
    {
        std::vector<unsigned char> image(208 * 288, 200);
        std::fill(image.begin(), image.begin() + 208 * 150, static_cast<unsigned char>(10));
        pad.driver.sendFingerprint(image, 50);
    }

    void waitForCall(const char *name)
    {
        while (pad.driver.calls().find(name) == std::string::npos)
            std::this_thread::sleep_for(1ms);
    }

    int shownPictures()
    {
        return reinterpret_cast<decltype(&KVSIM_ShownPictures)>(pad.driver.control("KVSIM_ShownPictures"))();
    }
};

TEST_P(FingerprintLockUse, TakesInAFingerprintWithoutTheCanvasLock)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        expectReturns<MutexLock>(
            inner.m_mutexUpdateCanvas, {"a fingerprint", [this](const Scene &) { sendFingerprint(); }});
    });
}

TEST_P(FingerprintLockUse, HoldsNoLockOverTheTransferToThePad)
{
    setScreenDelay(60000);
    sendFingerprint();
    waitForCall("ShowFPImageOnDevice");
    withOpenInstance(GetParam(), [](auto &inner) { expectAllFree(inner); });
    EXPECT_EQ(shownPictures(), 0) << "the transfer was over before the test looked";
}

TEST_P(FingerprintLockUse, MergesOnTheDisplayThreadUnderTheCanvasLock)
{
    withOpenInstance(GetParam(), [this](auto &inner) {
        const auto white = [&inner] { return inner.m_canvas == padparts::inkCanvas(inner); };
        {
            const MutexLock locked(inner.m_mutexUpdateCanvas);
            sendFingerprint();
            while (shownPictures() == 0)
                std::this_thread::sleep_for(1ms);
            std::this_thread::sleep_for(30ms);
            EXPECT_TRUE(white()) << "the merge did not wait for the lock";
        }
        for (int i = 0; i < 60000; ++i) {
            std::this_thread::sleep_for(1ms);
            const MutexLock locked(inner.m_mutexUpdateCanvas);
            if (!white())
                return;
        }
        ADD_FAILURE() << "the fingerprint was never merged";
    });
}

INSTANTIATE_TEST_SUITE_P(S310X, FingerprintLockUse,
    testing::Values(PadCase{&kS310XFamily, false}, PadCase{&kS310XFamily, true}), padCaseName);
