// A fingerprint that comes while there is no memory to show it is in every picture all the same, and shown as soon as
// there is memory. A point that there is no memory to draw is kept.
#include "failingmemory.h"
#include "quietpad.h"

#include "fingerprints.h"
#include "insidepads.h"
#include "repaintrequest.h"
#include "savedfiles.h"

#include <QThread>

#include <atomic>
#include <optional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

thread_local bool isMain = false;
int refusalsBefore = 0;

int refusals()
{
    return failingmemory::refusals() - refusalsBefore;
}

bool toOthers(std::size_t)
{
    return !isMain;
}

bool onceToAnyone(std::size_t)
{
    return refusals() == 0;
}

std::atomic<long> untilRefusal{0};

bool nthToOthers(std::size_t)
{
    return !isMain && --untilRefusal == 0;
}

bool toOthersAndNth(std::size_t)
{
    return !isMain || --untilRefusal == 0;
}

/// While it lives, a rule refuses memory, and refusals are counted.
class ScarceMemory
{
public:
    explicit ScarceMemory(bool (*rule)(std::size_t))
    {
        refusalsBefore = failingmemory::refusals();
        failingmemory::refuse(rule);
    }
    ~ScarceMemory() { failingmemory::refuse(nullptr); }
    ScarceMemory(const ScarceMemory &) = delete;
    ScarceMemory &operator=(const ScarceMemory &) = delete;
};

constexpr int kRidges = 10; ///< red pixels that a fingerprint has at least; the ink has none

constexpr int kFirstTry = 3; ///< refusals that one merge meets at most: its own, and its exception's

enum class Place
{
    Centred,
    OnTheInk,
    OfItsOwn
};

struct Row
{
    const char *name;
    PadCase pad;
    Place place;
};

const Row kRows[] = {{"CentredInWidget", {&kS310XFamily, false}, Place::Centred},
    {"CentredHeadless", {&kS310XFamily, true}, Place::Centred}, {"OnTheInk", {&kS310XFamily, false}, Place::OnTheInk},
    {"OfItsOwn", {&kS310XFamily, false}, Place::OfItsOwn}};

/// Counts what a widget paints when nobody but itself asks for it.
class Paints : public QObject
{
public:
    explicit Paints(QWidget *widget)
        : m_widget(widget)
    {
        settle();
        if (widget != nullptr)
            widget->installEventFilter(this);
    }

    bool come() const { return m_widget == nullptr || m_count > 0; }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    QWidget *m_widget;
    int m_count = 0;
};

class OwedMerge : public testing::TestWithParam<Row>
{
protected:
    OwedMerge()
        : pad(GetParam().pad)
    {
        isMain = true;
        EXPECT_EQ(chdir(KV_QUIET_DRIVER_DIRECTORY), 0);
        EXPECT_TRUE(pad.open());
        EXPECT_EQ(signingWidget() == nullptr, GetParam().pad.headless);
        QWidget *const parent = GetParam().place == Place::OfItsOwn ? &other : pad.window();
        other.resize(60, 60);
        other.show();
        if (GetParam().place != Place::Centred) {
            EXPECT_EQ(KVS310X_SetDisplayedFPImageAt(pad.type(), parent, 0, 0, 5, 5, 40, 50), ARI_SUCCESS);
        }
        pad.signAnew();
        EXPECT_EQ(shown() == nullptr, GetParam().pad.headless);
    }

    QWidget *signingWidget()
    {
        return pad.window() == nullptr ? nullptr
                                       : pad.window()->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    }

    /// The picture with the fingerprint: on a place of its own, that place's.
    QImage picture() const
    {
        const bool isApart = GetParam().place == Place::OfItsOwn;
        char *const text = isApart ? KVS310X_GetFPImageBase64Data(pad.type(), EBITI_BITMAP, false)
                                   : KVS310X_Base64EncodeEx(pad.type(), EBITI_BITMAP, false);
        const QImage image =
            QImage::fromData(QByteArray::fromBase64(text), "BMP").convertToFormat(QImage::Format_ARGB32);
        if (isApart)
            KVS310X_FreeFPImageBase64Data(pad.type(), text);
        else
            KVS310X_Base64EncodeExFree(pad.type(), text);
        return image;
    }

    static int redOf(const QImage &image)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += qRed(image.pixel(x, y)) > 200 && qGreen(image.pixel(x, y)) < 100;
        return count;
    }

    /// The widget that shows the fingerprint; null without one.
    QWidget *shown() { return GetParam().place == Place::OfItsOwn ? fingerprintWidget(other) : signingWidget(); }

    int shownRed()
    {
        QWidget *const widget = shown();
        return widget == nullptr ? redOf(picture()) : redOf(painted(*widget));
    }

    QWidget other;
    QuietPad pad;
};

INSTANTIATE_TEST_SUITE_P(
    Places, OwedMerge, testing::ValuesIn(kRows), [](const auto &row) { return std::string(row.param.name); });

TEST_P(OwedMerge, IsMadeUpForByWhoAsksForThePicture)
{
    EXPECT_EQ(redOf(picture()), 0);
    std::optional<ScarceMemory> scarce(toOthers);
    pad.fingerprint(50);
    ASSERT_TRUE(becomes([] { return refusals() > kFirstTry; })); // the display thread could not merge
    const Paints paints(shown());
    const QImage whole = picture();
    scarce.reset();
    EXPECT_GT(redOf(whole), kRidges);
    EXPECT_TRUE(becomes([&] { return paints.come(); }));
    ASSERT_TRUE(becomes([&] { return shownRed() > kRidges; }));
    EXPECT_EQ(picture(), whole);
}

TEST_P(OwedMerge, IsMadeUpForOnceThereIsMemory)
{
    std::optional<ScarceMemory> scarce(toOthers);
    pad.fingerprint(50);
    ASSERT_TRUE(becomes([] { return refusals() > kFirstTry; })); // and tried again
    const Paints paints(shown());
    scarce.reset();
    EXPECT_TRUE(becomes([&] { return paints.come(); }));
    EXPECT_TRUE(becomes([&] { return shownRed() > kRidges; }));
    EXPECT_TRUE(becomes([&] { // the display thread is at rest again
        const int before = paints.count();
        QThread::msleep(30);
        settle();
        return paints.count() == before;
    }));
}

/// Whichever allocation of the display thread fails, the widget that shows the fingerprint is painted.
TEST_P(OwedMerge, IsPaintedInTheEnd)
{
    constexpr int kMostAllocations = 1000;
    int n = 1;
    for (; n < kMostAllocations; ++n) {
        const Paints paints(shown());
        untilRefusal = n;
        const ScarceMemory scarce(nthToOthers);
        pad.fingerprint(50 + n);
        ASSERT_TRUE(becomes([&] { return paints.come() && redOf(picture()) > kRidges; })) << n;
        if (refusals() == 0)
            break;
        pad.signAnew();
    }
    EXPECT_LT(n, kMostAllocations);
    EXPECT_TRUE(GetParam().pad.headless || n > 2) << "a failure came before the paint";
}

/// The display thread, which a forked child does not have, may have held the locks when it was forked.
TEST_P(OwedMerge, IsNoFileInAForkedChild)
{
    const SavedFiles files;
    std::wstring path = files.path("child.bmp").toStdWString();
    const auto save = [&] { return KVS310X_SaveDrawingImage(pad.type(), ITI_BITMAP, path.data(), IDLI_150DPI); };
    std::optional<ScarceMemory> scarce(toOthers);
    pad.fingerprint(50);
    ASSERT_TRUE(becomes([] { return refusals() > kFirstTry; }));
    const pid_t child = fork();
    if (child == 0)
        _exit(save() == ARI_INK_EMPTY ? 0 : 1);
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(files.names().empty());
    EXPECT_EQ(save(), ARI_SUCCESS);
}

class OwedPlace : public OwedMerge
{
};
INSTANTIATE_TEST_SUITE_P(OfItsOwn, OwedPlace, testing::Values(kRows[3]));

/// With a driver that cannot clear its screen, clearing empties this place alone.
TEST_P(OwedPlace, StaysEmptyOnceItIsCleared)
{
    std::optional<ScarceMemory> scarce(toOthers);
    pad.fingerprint(50);
    ASSERT_TRUE(becomes([] { return refusals() > kFirstTry; }));
    withOpenInstance(GetParam().pad, [](auto &inner) { inner.m_pfn_KVSPDAPI_ClearDeviceContent = nullptr; });
    EXPECT_EQ(KVS310X_Clear(pad.type()), ARI_FAIL);
    scarce.reset();
    EXPECT_EQ(redOf(picture()), 0);
}

/// Whichever allocation of the call fails, its text is empty or has the fingerprint.
TEST_P(OwedPlace, IsNeverHandedOutWithoutItsFingerprint)
{
    constexpr int kMostAllocations = 1000;
    int n = 1, empty = 0;
    for (bool failed = true; failed && n < kMostAllocations; ++n) {
        untilRefusal = 0;
        const ScarceMemory scarce(toOthersAndNth);
        pad.fingerprint(50);
        ASSERT_TRUE(becomes([] { return refusals() > kFirstTry; }));
        untilRefusal = n;
        char *const text = KVS310X_GetFPImageBase64Data(pad.type(), EBITI_BITMAP, false);
        failed = untilRefusal.exchange(0) <= 0;
        const bool isEmpty = text == nullptr || *text == '\0';
        empty += isEmpty;
        EXPECT_TRUE(failed || !isEmpty);
        EXPECT_TRUE(isEmpty || redOf(QImage::fromData(QByteArray::fromBase64(text), "BMP")) > kRidges) << n;
        KVS310X_FreeFPImageBase64Data(pad.type(), text);
        pad.signAnew();
    }
    EXPECT_LT(n, kMostAllocations);
    EXPECT_GT(empty, 2);
}

class PointWithoutMemory : public testing::TestWithParam<PadCase>
{
};
INSTANTIATE_TEST_SUITE_P(AllPads, PointWithoutMemory, testing::ValuesIn(allPads()), padCaseName);

TEST_P(PointWithoutMemory, ToDrawItIsKept)
{
    ASSERT_EQ(chdir(KV_QUIET_DRIVER_DIRECTORY), 0);
    QuietPad pad(GetParam());
    ASSERT_TRUE(pad.open());
    const RawArea area = rawArea(pad.type());
    const auto at = [&](int step, int status) {
        pad.packet(area.offsetX + area.spanX * step / 9, area.offsetY + area.spanY * 4 / 9, 300, status);
    };
    at(2, KVSPDARI_PS_PEN_DOWN);
    {
        const ScarceMemory scarce(onceToAnyone); // the first is for the brush; there is memory for the point
        at(4, KVSPDARI_PS_PEN_MOVE);
    }
    EXPECT_EQ(refusals(), 1);
    EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), 2);
    at(5, KVSPDARI_PS_PEN_MOVE); // which is drawn from the last place that was
    at(5, KVSPDARI_PS_PEN_UP);
    const QImage picture = QImage::fromData(QByteArray::fromBase64(pad.picture().c_str()), "BMP");
    EXPECT_NE(picture.pixel(picture.width() * 3 / 9, picture.height() * 4 / 9) | 0xff000000, 0xffffffff);
}

class ClearedWithoutMemory : public testing::TestWithParam<PadCase>
{
};
INSTANTIATE_TEST_SUITE_P(AllPads, ClearedWithoutMemory, testing::ValuesIn(allPads()), padCaseName);

/// Another thread than the window's has to ask for memory to have it painted.
TEST_P(ClearedWithoutMemory, ThereIsNoPointLeft)
{
    isMain = true;
    ASSERT_EQ(chdir(KV_QUIET_DRIVER_DIRECTORY), 0);
    QuietPad pad(GetParam());
    ASSERT_TRUE(pad.open());
    constexpr int kMostAllocations = 1000;
    int n = 1;
    for (bool failed = true; failed && n < kMostAllocations; ++n) {
        pad.signAnew();
        ASSERT_GT(pad->GetTotalInkPointsNumber(pad.type()), 0);
        std::thread([&] {
            QThread::currentThread(); // asks for memory at first
            untilRefusal = n;
            const ScarceMemory scarce(nthToOthers);
            EXPECT_EQ(pad->Clear(pad.type()), ARI_SUCCESS) << n;
        }).join();
        failed = refusals() > 0;
        EXPECT_EQ(pad->GetTotalInkPointsNumber(pad.type()), ARI_INK_EMPTY) << n;
    }
    EXPECT_LT(n, kMostAllocations);
    EXPECT_TRUE(GetParam().headless || n > 2) << "a failure came before the paint";
}

class CountingWidget : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++paints; }
};

TEST(RepaintWithoutMemory, IsAskedForAgain)
{
    isMain = true;
    CountingWidget widget;
    widget.show();
    RepaintRequest request;
    ASSERT_TRUE(becomes([&] { return widget.paints > 0; }));
    const auto ask = [&](bool fails) {
        std::thread([&] {
            QThread::currentThread(); // asks for memory at first
            std::optional<ScarceMemory> scarce;
            if (fails)
                scarce.emplace(toOthers);
            bool failed = false;
            try {
                request.make(widget);
            } catch (const std::bad_alloc &) {
                failed = true;
            }
            scarce.reset();
            EXPECT_EQ(failed, fails);
        }).join();
    };
    ask(true);
    settle();
    const int before = widget.paints;
    ask(false);
    EXPECT_TRUE(becomes([&] { return widget.paints > before; }));
}

} // namespace
