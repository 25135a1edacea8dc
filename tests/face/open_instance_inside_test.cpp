// The two variables that hold the open instance, in each state, seen from inside the library.
#include "logfile.h"
#include "openinstance.h"
#include "padclasses.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace {

/// Allocations of exactly this size fail while it is not 0; all of this thread, while that is set.
size_t refusedSize = 0;
thread_local bool refusedAll = false;
/// Of the next allocations that may answer null this one does; 0 for none.
int refusedAsNull = 0;

void *allocate(size_t size)
{
    void *memory = size == refusedSize || refusedAll ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void *allocateOrNull(size_t size)
{
    const bool refused = refusedAsNull > 0 && --refusedAsNull == 0;
    return refused ? nullptr : std::malloc(size == 0 ? 1 : size);
}

} // namespace

// Every form, since a sanitizer's own forms would not match these.
void *operator new(size_t size)
{
    return allocate(size);
}
void *operator new[](size_t size)
{
    return allocate(size);
}
// An S310X's fields lie on lines of the processor's cache.
void *operator new(size_t size, std::align_val_t alignment)
{
    const auto boundary = static_cast<size_t>(alignment);
    void *memory = size == refusedSize || refusedAll ? nullptr : std::aligned_alloc(boundary, size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}
void operator delete(void *memory, std::align_val_t) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, size_t, std::align_val_t) noexcept
{
    std::free(memory);
}
void *operator new(size_t size, const std::nothrow_t &) noexcept
{
    return allocateOrNull(size);
}
void *operator new[](size_t size, const std::nothrow_t &) noexcept
{
    return allocateOrNull(size);
}
void operator delete(void *memory) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, size_t) noexcept
{
    std::free(memory);
}

namespace {

template <class Pad>
class OpenInstance : public testing::Test
{
protected:
    const Family &family = *PadTraits<Pad>::model().family;
    SimulatedDriver driver;
    QWidget window;

    bool open() { return family.InitialDevice(family.type, isWidget<Pad> ? &window : nullptr, 0, 0, 40, 20); }
    ~OpenInstance() override { family.UnInitialDevice(family.type); }
};
TYPED_TEST_SUITE(OpenInstance, PadClasses, PadClassNames);

TYPED_TEST(OpenInstance, IsHeldWithItsHost)
{
    EXPECT_EQ(g_pSignWidget, nullptr);
    EXPECT_FALSE(g_bUseSignObj);
    ASSERT_TRUE(this->open());
    ASSERT_NE(g_pSignWidget, nullptr);
    EXPECT_EQ(g_bUseSignObj, !isWidget<TypeParam>);
    const TypeParam &pad = openinstance::as<TypeParam>();
    EXPECT_TRUE(pad.m_bDeviceConnected) << "it is this class that was created";
    if constexpr (isWidget<TypeParam>) {
        EXPECT_EQ(&pad, this->window.template findChild<TypeParam *>());
    } else {
        EXPECT_EQ(pad.m_canvas.size(), QSize(40, 20));
    }
    void *const first = g_pSignWidget;
    EXPECT_TRUE(this->open());
    EXPECT_EQ(g_pSignWidget, first);
    EXPECT_EQ(this->family.UnInitialDevice(this->family.type), 0);
    EXPECT_EQ(g_pSignWidget, nullptr);
    EXPECT_FALSE(g_bUseSignObj);
}

TYPED_TEST(OpenInstance, IsNotKeptAfterARefusedStart)
{
    this->driver.setResult("Initial", -3);
    EXPECT_FALSE(this->open());
    EXPECT_EQ(g_pSignWidget, nullptr);
    EXPECT_FALSE(g_bUseSignObj);
}

TYPED_TEST(OpenInstance, IsNotKeptWhenThereIsNoMemoryForIt)
{
    refusedSize = sizeof(TypeParam);
    EXPECT_FALSE(this->open()) << "and no exception";
    refusedSize = 0;
    EXPECT_EQ(g_pSignWidget, nullptr);
    EXPECT_FALSE(g_bUseSignObj);
    EXPECT_TRUE(this->open());
}

TYPED_TEST(OpenInstance, IsNotKeptWhenThereIsNoMemoryForEitherOfItsLists)
{
    const std::string key = std::string(PadTraits<TypeParam>::name) + "::IsDeviceConnected()";
    for (const int list : {1, 2}) {
        const LogTail log;
        LogOn::set(true);
        refusedAsNull = list;
        EXPECT_FALSE(this->open());
        LogOn::set(false);
        EXPECT_EQ(refusedAsNull, 0);
        EXPECT_EQ(g_pSignWidget, nullptr);
        EXPECT_FALSE(this->driver.isOpen());
        std::vector<std::string> texts;
        for (const LogEntry &entry : log.entries()) {
            if (entry.key == key)
                texts.push_back(entry.text);
        }
        ASSERT_EQ(texts.size(), 4u);
        EXPECT_EQ(texts[2], "((m_pPointDataList || m_pDecodedPointDataList) == nullptr), out of memory !!!");
        EXPECT_EQ(texts[3], "leave with m_bDeviceConnected=0");
    }
    EXPECT_TRUE(this->open());
}

TYPED_TEST(OpenInstance, AnswersAsWithoutOneWhenAMemberFindsNoMemory)
{
    ASSERT_TRUE(this->open());
    this->driver.send({{1000, 900, 5, 0}});
    refusedSize = 100; // the text of a time
    char *const none = this->family.GetInkPointDataTimeInfo(this->family.type, 0);
    refusedSize = 0;
    EXPECT_EQ(none, nullptr) << "and no exception";
    char *const text = this->family.GetInkPointDataTimeInfo(this->family.type, 0);
    EXPECT_NE(text, nullptr);
    this->family.FreeInkPointDataTimeInfo(this->family.type, text);
}

TYPED_TEST(OpenInstance, IsClosedWithoutMemory)
{
    this->window.show();
    ASSERT_TRUE(this->open());
    this->driver.send({{1000, 900, 5, 0}});
    const LogTail log;
    LogOn::set(true);
    refusedAll = true;
    int result = ARI_FAIL;
    try {
        result = this->family.UnInitialDevice(this->family.type);
    } catch (...) {
        result = ARI_FAIL;
    }
    refusedAll = false;
    LogOn::set(false);
    EXPECT_EQ(result, ARI_SUCCESS);
    EXPECT_EQ(g_pSignWidget, nullptr);
    EXPECT_FALSE(g_bUseSignObj);
    EXPECT_EQ(log.entries().back().text, "leave with ARI_SUCCESS...");
    EXPECT_EQ(this->family.Clear(this->family.type), ARI_FAIL) << "closed, and no crash";
}

TYPED_TEST(OpenInstance, HasAnAboutBoxThatIsLeftWithoutMemory)
{
    const LogTail log;
    LogOn::set(true);
    refusedAll = true;
    bool thrown = false;
    try {
        this->family.AboutBox(nullptr);
    } catch (...) {
        thrown = true;
    }
    refusedAll = false;
    LogOn::set(false);
    EXPECT_FALSE(thrown);
    EXPECT_EQ(log.entries().back().text, "leave !");
}

TEST(OpenFingerprintInstance, EncodesTheWholeCanvasAfterATextOfTheFingerprintFoundNoMemory)
{
    SimulatedDriver driver;
    QWidget window;
    ASSERT_TRUE(KVS310X_InitialDevice(KVS310X_DEVICE, &window, 0, 0, 400, 200));
    ASSERT_EQ(KVS310X_SetDisplayedFPImageAt(KVS310X_DEVICE, &window, 0, 0, 5, 5, 70, 20), ARI_SUCCESS);
    driver.send({{3000, 2900, 5, 0}});
    const auto sizeOf = [](char *text) {
        const size_t size = text == nullptr ? 0 : std::strlen(text) + 1;
        KVS310X_Base64EncodeFree(KVS310X_DEVICE, text);
        return size;
    };
    const auto fingerprint = [] { return KVS310X_GetFPImageBase64Data(KVS310X_DEVICE, EBITI_BITMAP, true); };
    const auto canvas = [] { return KVS310X_Base64Encode(KVS310X_DEVICE, EBITI_BITMAP); };
    const size_t whole = sizeOf(canvas());
    const size_t part = sizeOf(fingerprint());
    ASSERT_LT(part, whole);
    refusedSize = part;
    char *const none = fingerprint();
    refusedSize = 0;
    EXPECT_STREQ(none, "") << "and no exception";
    KVS310X_FreeFPImageBase64Data(KVS310X_DEVICE, none);
    EXPECT_EQ(sizeOf(canvas()), whole);
    EXPECT_EQ(sizeOf(fingerprint()), part);
    KVS310X_UnInitialDevice(KVS310X_DEVICE);
}

// A pass of the display thread by hand, when the pad has shown a picture.
TEST(OpenFingerprintInstance, LosesAMergeAndNotTheDisplayThreadWhenThereIsNoMemoryForIt)
{
    CS310XSignObj pad(400, 300);
    pad.stopDisplayThread({"OpenFingerprintInstance", "()"});
    pad.m_bDeviceConnected = true;
    std::vector<unsigned char> image(208 * 288, 200);
    std::fill_n(image.begin(), image.size() / 2, static_cast<unsigned char>(0));
    pad.RxS310XSignPadFPRawData(image.data(), 208 * 288, 1);
    const QImage blank = pad.m_canvas.copy();
    const auto pass = [&pad] {
        pad.m_bAlreadyShownFPImageRawDataOnDevice = true;
        pad.ProcessShowFPImgaeRawDataOnDevice();
    };
    refusedAll = true;
    pass();
    refusedAll = false;
    EXPECT_EQ(pad.m_canvas, blank);
    pass();
    EXPECT_NE(pad.m_canvas, blank);
}

TYPED_TEST(OpenInstance, LosesAPointAndNotTheDriversThreadWhenThereIsNoMemoryForIt)
{
    ASSERT_TRUE(this->open());
    const auto count = [this] { return this->family.GetTotalInkPointsNumber(this->family.type); };
    this->driver.send(1000, 900, 5, KVSPDARI_PS_PEN_DOWN);
    const auto &points = *openinstance::as<TypeParam>().m_pPointDataList;
    while (points.size() < 64 || points.size() < points.capacity())
        this->driver.send(1000, 900, 5, KVSPDARI_PS_PEN_MOVE);
    const int full = count();
    refusedSize = 2 * points.size() * sizeof(_POINTDATA);
    this->driver.send(1000, 900, 5, KVSPDARI_PS_PEN_MOVE);
    refusedSize = 0;
    EXPECT_EQ(count(), full);
    this->driver.send(1000, 900, 5, KVSPDARI_PS_PEN_MOVE);
    EXPECT_EQ(count(), full + 1) << "the stroke goes on";
}

TYPED_TEST(OpenInstance, IsMarkedAsHeadlessByAnOpeningWithoutAParent)
{
    ASSERT_TRUE(this->open());
    void *const first = g_pSignWidget;
    const LogTail log;
    LogOn::set(true);
    EXPECT_TRUE(this->family.InitialDevice(this->family.type, nullptr, 0, 0, 90, 80));
    LogOn::set(false);
    EXPECT_EQ(g_pSignWidget, first);
    EXPECT_TRUE(g_bUseSignObj) << "an open widget too";
    ASSERT_EQ(log.entries().size(), 2u);
    EXPECT_EQ(log.entries()[1].text, "leave with true due to g_pSignWidget already created !");
    g_bUseSignObj = !isWidget<TypeParam>; // so that it can be closed as what it is
}

TYPED_TEST(OpenInstance, IsLeftAloneByAnOpeningWithAParent)
{
    ASSERT_TRUE(this->open());
    void *const first = g_pSignWidget;
    QWidget other;
    EXPECT_TRUE(this->family.InitialDevice(this->family.type, &other, 0, 0, 90, 80));
    EXPECT_EQ(g_pSignWidget, first);
    EXPECT_EQ(g_bUseSignObj, !isWidget<TypeParam>);
    EXPECT_TRUE(other.children().isEmpty());
}

TYPED_TEST(OpenInstance, IsMadeAsTheFlagSaysEvenWithAParent)
{
    g_bUseSignObj = true;
    EXPECT_TRUE(this->family.InitialDevice(this->family.type, &this->window, 0, 0, 40, 20));
    EXPECT_TRUE(this->window.children().isEmpty()) << "a headless instance";
    EXPECT_TRUE(g_bUseSignObj);
    EXPECT_EQ(this->family.UnInitialDevice(this->family.type), 0);
    EXPECT_FALSE(g_bUseSignObj);
}

TYPED_TEST(OpenInstance, IsNotMarkedByARefusedDeviceType)
{
    EXPECT_FALSE(this->family.InitialDevice(this->family.type + 1, nullptr, 0, 0, 40, 20));
    EXPECT_FALSE(g_bUseSignObj);
    EXPECT_EQ(g_pSignWidget, nullptr);
}

TYPED_TEST(OpenInstance, IsForgottenWhenTheHostDestroysIt)
{
    if constexpr (isWidget<TypeParam>) {
        ASSERT_TRUE(this->open());
        delete this->window.template findChild<TypeParam *>();
        EXPECT_EQ(g_pSignWidget, nullptr);
        EXPECT_FALSE(g_bUseSignObj);
        EXPECT_FALSE(this->driver.isOpen());
    }
}

TYPED_TEST(OpenInstance, IsNotForgottenWhenAnotherWidgetIsDestroyed)
{
    if constexpr (isWidget<TypeParam>) {
        ASSERT_TRUE(this->open());
        void *const first = g_pSignWidget;
        delete new TypeParam(nullptr);
        EXPECT_EQ(g_pSignWidget, first);
        EXPECT_TRUE(this->driver.isOpen());
    }
}

} // namespace
