// A child forked while a pad is open inherits the instance but none of the threads.
#include "cs310xfpwidget.h"
#include "handrunpad.h"
#include "lockholder.h"
#include "openinstance.h"
#include "padclasses.h"

#include <QPointer>

#include <sys/wait.h>
#include <unistd.h>

namespace {

template <class Pad>
class ForkedChild : public testing::Test
{
};
TYPED_TEST_SUITE(ForkedChild, PadClasses, PadClassNames);

/// The child's exit status; it is ended when it does not end.
template <class Work>
int statusOfChild(Work work)
{
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(7);
    }
    int status = -1;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end)
            kill(child, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return status;
}

std::mutex &lockOfPlace(CS310XSignObj &pad, QWidget &)
{
    EXPECT_EQ(pad.SetDisplayedFPImageAt(60, 40, 5, 5, 20, 20), ARI_SUCCESS);
    return pad.m_pNewFPWidget->pixelsLock;
}
std::mutex &lockOfPlace(CS310XSignWidget &pad, QWidget &window)
{
    EXPECT_EQ(pad.SetDisplayedFPImageAt(&window, 5, 5, 20, 20), ARI_SUCCESS);
    return pad.m_pNewFPWidget->pixelsLock;
}

template <class Pad>
bool canTakeAll(Pad &pad)
{
    if constexpr (isFingerprintPad<Pad>) {
        if (!pad.m_mutexUpdateShowFPImageRawDataOnDevice.tryLock())
            return false;
    }
    return pad.m_mutexUpdateCanvas.tryLock() && pad.m_internals.pixelsLock.try_lock()
        && pad.m_internals.inkLock.try_lock();
}

} // namespace

// At the fork another thread holds what the pen's and the display thread hold now and then.
TYPED_TEST(ForkedChild, EndsThePadAndWaitsForNobody)
{
    const auto pad = constructed<TypeParam>(60, 40);
    Holder<MutexLock> canvas(pad->m_mutexUpdateCanvas, kPatience);
    Holder<std::lock_guard<std::mutex>> pixels(pad->m_internals.pixelsLock, kPatience);
    Holder<std::lock_guard<std::mutex>> ink(pad->m_internals.inkLock, kPatience);
    const int status = statusOfChild([&pad] {
        pad->Shutdown();
        if (!canTakeAll(*pad))
            _exit(8);
        if constexpr (isFingerprintPad<TypeParam>) {
            if (pad->m_pShowFPImageOnDeviceThread != nullptr)
                _exit(9);
        }
    });
    EXPECT_TRUE(WIFEXITED(status)) << "it had to be ended";
    EXPECT_EQ(WEXITSTATUS(status), 7) << "8: a lock is still held, 9: the display thread is";
    canvas.finish();
    pixels.finish();
    ink.finish();
    if constexpr (isFingerprintPad<TypeParam>) {
        EXPECT_TRUE(pad->m_pShowFPImageOnDeviceThread->isRunning()) << "the parent's goes on";
    }
    pad->Shutdown();
}

// A window is on its process's connection to the display: hiding it in the child would be a word in the parent's.
TYPED_TEST(ForkedChild, LeavesTheWidgetsInTheParentsWindow)
{
    if constexpr (isWidget<TypeParam>) {
        const PadCase row{PadTraits<TypeParam>::model().family, false};
        QWidget window;
        OpenPad pad(row, 60, 40);
        std::vector<QPointer<QWidget>> widgets{pad.widget()};
        if constexpr (isFingerprintPad<TypeParam>) {
            ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(pad.type(), &window, 60, 40, 5, 5, 20, 20), ARI_SUCCESS);
            widgets.emplace_back(openinstance::as<TypeParam>().m_pNewFPWidget);
            ASSERT_FALSE(widgets.back()->isHidden());
        }
        const int status = statusOfChild([&] {
            pad->UnInitialDevice(pad.type());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            for (const QPointer<QWidget> &widget : widgets) {
                if (widget.isNull() || widget->isHidden())
                    _exit(8);
            }
            if (g_pSignWidget != nullptr)
                _exit(9);
        });
        EXPECT_TRUE(WIFEXITED(status)) << "it had to be ended";
        EXPECT_EQ(WEXITSTATUS(status), 7) << "8: hidden or deleted, 9: still open";
        EXPECT_FALSE(widgets.front()->isHidden()) << "the parent's goes on";
    }
}

// The display thread may be painting a fingerprint into its place.
TYPED_TEST(ForkedChild, EndsThePlaceOfAFingerprintToo)
{
    if constexpr (isFingerprintPad<TypeParam>) {
        QWidget window;
        const auto pad = constructed<TypeParam>(60, 40);
        Holder<std::lock_guard<std::mutex>> place(lockOfPlace(*pad, window), kPatience);
        const int status = statusOfChild([&pad] {
            pad->Shutdown();
            if (pad->m_pNewFPWidget != nullptr)
                _exit(8);
        });
        EXPECT_TRUE(WIFEXITED(status)) << "it had to be ended";
        EXPECT_EQ(WEXITSTATUS(status), 7) << "8: the place is still there";
        place.finish();
        pad->Shutdown();
    }
}
