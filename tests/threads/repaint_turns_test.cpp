// A paint handler that waits for the canvas gets it between the images of a live push, and nobody else is delayed.
#include "insidepads.h"
#include "mutexlock.h"
#include "patience.h"

#include <atomic>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kTurn{5}; // how long a waiting paint is waited for, at least

Clock::duration turnOf(const RepaintRequest &repaint)
{
    const auto begin = Clock::now();
    repaint.letPaint();
    return Clock::now() - begin;
}

PadCase widgetPad(const Family &family)
{
    return {&family, false};
}

TEST(RepaintTurns, AreGivenToWhoWaits)
{
    RepaintRequest repaint;
    EXPECT_TRUE(takesLessThan(kTurn, [&] { return turnOf(repaint); }));
    repaint.setWaiting(true);
    EXPECT_GE(turnOf(repaint), kTurn);
    repaint.setWaiting(false);
    EXPECT_TRUE(takesLessThan(kTurn, [&] { return turnOf(repaint); }));
}

TEST(RepaintTurns, APaintWaitsWhileTheCanvasIsHeldAndNotAfterwards)
{
    for (const Family &family : kFamilies) {
        if (HasFailure())
            return; // each takes its time to fail
        OpenPad pad(widgetPad(family));
        withOpenInstance(widgetPad(family), [&](auto &inner) {
            const RepaintRequest &repaint = inner.m_internals.repaint;
            std::atomic<bool> held{false};
            bool waited = false;
            std::thread holder([&] {
                const MutexLock locked(inner.m_mutexUpdateCanvas);
                held = true;
                const auto end = Clock::now() + kPatience;
                while (!waited && Clock::now() < end)
                    waited = turnOf(repaint) >= kTurn;
            });
            while (!held)
                std::this_thread::yield();
            pad.widget()->repaint();
            holder.join();
            EXPECT_TRUE(waited) << family.prefix;
            EXPECT_TRUE(takesLessThan(kTurn, [&] { return turnOf(repaint); })) << family.prefix;
        });
    }
}

TEST(RepaintTurns, ComeAfterEachImageOfALivePush)
{
    OpenPad pad(widgetPad(kS210Family));
    pad.driver.send(stroke(KVS210_DEVICE, {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    settle();
    auto &inner = openinstance::as<CS210SignWidget>();
    const auto push = [&inner] {
        const auto begin = Clock::now();
        inner.CheckIfNeedToSendRealTimeSignBase64Data();
        return Clock::now() - begin;
    };
    inner.m_internals.repaint.setWaiting(true);
    EXPECT_TRUE(takesLessThan(kTurn, push)) << "nobody takes images";
    KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_JPEG, [](char *) {});
    inner.m_internals.repaint.setWaiting(false);
    push(); // the first one checks the encoder
    EXPECT_TRUE(takesLessThan(kTurn, push)) << "nobody waits";
    inner.m_internals.repaint.setWaiting(true);
    EXPECT_GE(push(), kTurn);
    inner.m_internals.repaint.setWaiting(false);
}

} // namespace
