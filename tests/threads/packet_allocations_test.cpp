// Handling a packet on the driver's thread allocates nothing but the growth of the point list.
#include "openpad.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <iostream>

// glibc's own functions under other names, so that every allocation of the process passes here.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
}

namespace {

thread_local bool counting = false;
thread_local long allocations = 0;

void *counted(void *memory)
{
    allocations += counting;
    return memory;
}

void switchCounting(int on)
{
    counting = on == 1;
}

} // namespace

extern "C" void *malloc(size_t size)
{
    return counted(__libc_malloc(size));
}

extern "C" void *calloc(size_t count, size_t size)
{
    return counted(__libc_calloc(count, size));
}

extern "C" void *realloc(void *memory, size_t size)
{
    return counted(__libc_realloc(memory, size));
}

namespace {

constexpr int kMoves = 2000;
constexpr KVSIM_PACKET kBegin{0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON};
constexpr KVSIM_PACKET kEnd{0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_CANCEL_BUTTON};

std::vector<KVSIM_PACKET> zigzag(int deviceType)
{
    std::vector<Share> shares;
    for (int i = 0; i <= kMoves; ++i)
        shares.push_back({0.2 + 0.6 * (i % 10) / 10, 0.2 + 0.6 * (i % 7) / 7, 0.3 + 0.05 * (i % 5)});
    return stroke(deviceType, shares);
}

/// The taps switch the counting on the driver's own thread, as they arrive there between the packets.
class PacketAllocations : public testing::TestWithParam<PadCase>
{
protected:
    PacketAllocations()
        : pad(GetParam(), 400, 200)
    {
        pad->SignPadEventCallback(type, switchCounting);
        pad.driver.send(zigzag(type)); // what is made once is made now
    }

    long allocationsOf(std::vector<KVSIM_PACKET> packets)
    {
        packets.insert(packets.begin(), kBegin);
        packets.push_back(kEnd);
        const long before = total();
        pad.driver.send(packets);
        return total() - before;
    }

    /// The driver's thread tells its count by a tap.
    long total()
    {
        static std::atomic<long> told{0};
        pad->SignPadEventCallback(type, [](int) { told = allocations; });
        pad.driver.send({kEnd});
        pad->SignPadEventCallback(type, switchCounting);
        return told;
    }

    const int type = GetParam().family->type;
    OpenPad pad;
};

/// A list that doubles asks this often for room for so many more points.
long growthOf(int points)
{
    return static_cast<long>(std::ceil(std::log2(points))) + 1;
}

} // namespace

TEST_P(PacketAllocations, OfMovesAreThoseOfTheListOfPoints)
{
    const long made = allocationsOf(zigzag(type));
    RecordProperty("allocations", static_cast<int>(made));
    std::cout << GetParam().className() << ": " << made << " allocations for " << kMoves << " moves\n";
    EXPECT_LE(made, growthOf(kMoves));
}

TEST_P(PacketAllocations, OfEverythingButMovesAreThoseOfTheListOfPoints)
{
    std::vector<KVSIM_PACKET> packets;
    for (int i = 0; i < 300; ++i) {
        packets.push_back({3000, 3000, 100, KVSPDARI_PS_PEN_DOWN});
        packets.push_back({3000, 3000, 100, KVSPDARI_PS_PEN_UP});
        packets.push_back({3000, 3000, 100, KVSPDARI_PS_PEN_MOVE}); // outside a stroke
        packets.push_back({3000, 3000, 100, 77});
        packets.push_back({0, 0, 0, KVSPDARI_PS_PEN_DOWN_ON_ENTER_BUTTON});
    }
    EXPECT_LE(allocationsOf(packets), growthOf(600));
}

TEST_P(PacketAllocations, AreCountedAtAll)
{
    counting = true;
    const long before = allocations;
    delete new QImage(10, 10, QImage::Format_ARGB32);
    std::free(std::malloc(10));
    counting = false;
    EXPECT_GE(allocations - before, 2);
    // The list that starts empty grows while packets come: the counting thread is the right one.
    pad->Clear(type);
    EXPECT_GE(allocationsOf(zigzag(type)), 5);
}

// In a widget the GUI thread waits meanwhile, so that one request for a repaint is posted for all.
INSTANTIATE_TEST_SUITE_P(Pads, PacketAllocations, testing::ValuesIn(allPads()), padCaseName);

namespace {

using PacketAllocationsWithAFingerprint = PacketAllocations;

} // namespace

TEST_P(PacketAllocationsWithAFingerprint, OfMovesAreThoseOfTheListOfPoints)
{
    std::vector<unsigned char> ridges(208 * 288);
    for (size_t i = 0; i < ridges.size(); ++i)
        ridges[i] = i / 5 % 2 == 0 ? 0 : 255;
    const QImage before = pad.canvas();
    pad.driver.sendFingerprint(ridges, 90);
    pad.driver.send(zigzag(type)); // what the fingerprint needs is made now
    const QImage shown = pad.canvas();
    int red = 0;
    for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
            red += shown.pixel(x, y) == 0xffff0000 && before.pixel(x, y) == 0xffffffff;
    EXPECT_GT(red, 100) << "the fingerprint that the moves are merged with";
    EXPECT_LE(allocationsOf(zigzag(type)), growthOf(kMoves));
}

INSTANTIATE_TEST_SUITE_P(Pads, PacketAllocationsWithAFingerprint,
    testing::Values(PadCase{&kS310XFamily, true}, PadCase{&kS310XFamily, false}), padCaseName);
