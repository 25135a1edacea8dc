// A paint handler that waits for the canvas gets it between the images of a live push, and nobody else is delayed.
#include "insidepads.h"
#include "mutexlock.h"
#include "patience.h"

#include <atomic>
#include <sys/resource.h>
#include <thread>

namespace {

// How often the thread goes to sleep for a paint that waits, at least. It asks for twice as many; on a busy machine a
// short sleep may be over before it has begun, and is not counted.
constexpr long kTurn = 25;

/// How often this thread goes to sleep in the call. A busy machine takes the processor away, and makes nobody sleep.
template <class Call>
long sleepsIn(Call call)
{
    const auto sleeps = [] {
        rusage use{};
        getrusage(RUSAGE_THREAD, &use);
        return use.ru_nvcsw;
    };
    const long before = sleeps();
    call();
    return sleeps() - before;
}

bool takesItsTurn(const RepaintRequest &repaint)
{
    return sleepsIn([&] { repaint.letPaint(); }) >= kTurn;
}

PadCase widgetPad(const Family &family)
{
    return {&family, false};
}

TEST(RepaintTurns, AreGivenToWhoWaits)
{
    RepaintRequest repaint;
    EXPECT_FALSE(takesItsTurn(repaint));
    repaint.setWaiting(true);
    EXPECT_TRUE(takesItsTurn(repaint));
    repaint.setWaiting(false);
    EXPECT_FALSE(takesItsTurn(repaint));
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
                const auto end = std::chrono::steady_clock::now() + kPatience;
                while (!waited && std::chrono::steady_clock::now() < end)
                    waited = takesItsTurn(repaint);
            });
            while (!held)
                std::this_thread::yield();
            pad.widget()->repaint();
            holder.join();
            EXPECT_TRUE(waited) << family.prefix;
            EXPECT_FALSE(takesItsTurn(repaint)) << family.prefix;
        });
    }
}

TEST(RepaintTurns, ComeAfterEachImageOfALivePush)
{
    OpenPad pad(widgetPad(kS210Family));
    pad.driver.send(stroke(KVS210_DEVICE, {{0.2, 0.2, 0.4}, {0.3, 0.3, 0.4}}));
    settle();
    auto &inner = openinstance::as<CS210SignWidget>();
    const auto push = [&inner] { inner.CheckIfNeedToSendRealTimeSignBase64Data(); };
    inner.m_internals.repaint.setWaiting(true);
    EXPECT_LT(sleepsIn(push), kTurn) << "nobody takes images";
    KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, EBITI_JPEG, [](char *) {});
    inner.m_internals.repaint.setWaiting(false);
    push(); // the first one checks the encoder
    EXPECT_LT(sleepsIn(push), kTurn) << "nobody waits";
    inner.m_internals.repaint.setWaiting(true);
    EXPECT_GE(sleepsIn(push), kTurn);
    inner.m_internals.repaint.setWaiting(false);
}

} // namespace
