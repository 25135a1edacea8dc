// Opens a pad, signs, saves and closes it, CYCLES times in one process: PROGRAM CYCLES. Prints the memory and the file
// descriptors in use as it goes on, and exits with 1 when they grow after the first tenth.
#include "../../fuzz/openpad.h"

#include <QApplication>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kLines = 10;
constexpr int kSensorBytes = 208 * 288;
// The heap's blocks of another round are not the very same; what is lost in each cycle goes beyond this soon.
constexpr long kMostHeapBytes = 16 * 1024;
constexpr long kMostResidentKb = 4 * 1024;
constexpr long kPooledThreads = 4; // Qt keeps some for a while

struct Held
{
    long residentKb;
    long heapBytes;
    long descriptors;
    long threads;
};

long entriesOf(const char *directory)
{
    const std::filesystem::directory_iterator entries(directory);
    return std::distance(begin(entries), end(entries));
}

Held held()
{
    malloc_trim(0);
    long pages = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    const struct mallinfo2 heap = mallinfo2();
    return {resident * 4, static_cast<long>(heap.uordblks + heap.hblkhd), entriesOf("/proc/self/fd"),
        entriesOf("/proc/self/task")};
}

void fail(const char *what)
{
    std::printf("failed: %s\n", what);
    std::exit(1);
}

void check(bool good, const char *what)
{
    if (!good)
        fail(what);
}

void sign(const fuzz::FuzzedPad &pad)
{
    std::vector<KVSIM_PACKET> packets;
    for (int i = 0; i < 60; ++i)
        packets.push_back({600 + i * 25, 700 + i % 9 * 60, 300 + i % 7 * 100, i == 0 ? 0 : 1});
    packets.push_back(packets.back());
    packets.back().status = KVSPDARI_PS_PEN_UP;
    const int count = static_cast<int>(packets.size());
    check(fuzz::Driver::instance().sendPackets(packets.data(), count) == count, "signing");
    check(pad->GetTotalInkPointsNumber(pad.type()) == count, "counting points");
}

void giveFingerprint()
{
    const fuzz::Driver &driver = fuzz::Driver::instance();
    std::vector<unsigned char> image(kSensorBytes);
    for (size_t i = 0; i < image.size(); ++i)
        image[i] = i / 5 % 2 == 0 ? 0 : 255;
    const int shown = driver.shownPictures();
    check(driver.sendFingerprint(image.data(), kSensorBytes, 80) == 1, "sending a fingerprint");
    while (driver.shownPictures() == shown)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

void save(const fuzz::FuzzedPad &pad, const QTemporaryDir &directory)
{
    static constexpr struct
    {
        int type;
        const char *name;
    } kFiles[] = {
        {ITI_BITMAP, "a.bmp"}, {ITI_JPEG, "a.jpg"}, {ITI_PNG, "a.png"}, {ITI_PDF, "a.pdf"}, {ITI_SVG, "a.svg"}};
    for (const auto &file : kFiles) {
        std::wstring path = (directory.path() + '/' + file.name).toStdWString();
        check(pad->SaveDrawingImage(pad.type(), file.type, path.data(), 0) == ARI_SUCCESS, "saving");
    }
    for (const int type : {EBITI_BITMAP, EBITI_JPEG, EBITI_PNG, EBITI_INK}) {
        char *text = pad->Base64Encode(pad.type(), type);
        check(text != nullptr, "encoding");
        if (type == EBITI_INK)
            check(pad->Base64Decode(pad.type(), type, text, nullptr) == ARI_SUCCESS, "decoding");
        pad->Base64EncodeFree(pad.type(), text);
    }
    char *svg = pad->GetSVGImageBase64Data(pad.type());
    check(svg != nullptr, "encoding SVG");
    pad->FreeSVGImageBase64Data(pad.type(), svg);
}

void cycle(const Family &family, bool headless, const QTemporaryDir &directory)
{
    fuzz::FuzzedPad pad(family, headless, 400, 200);
    check(pad.isOpen(), "opening");
    pad->SetSaveClipImageMargin(pad.type(), true, 10, 10);
    sign(pad);
    if (family.type == KVS310X_DEVICE)
        giveFingerprint();
    if (pad.widget() != nullptr)
        pad.widget()->repaint();
    save(pad, directory);
}

void cycleThree(const QTemporaryDir &directory)
{
    fuzz::Driver::instance().reset();
    fuzz::Driver::instance().setScreenDelay(0);
    cycle(kS210Family, true, directory);
    cycle(kS300Family, false, directory);
    cycle(kS310XFamily, false, directory);
}

void print(int cycles, const Held &now)
{
    std::printf("%8d %14ld %12ld %12ld %8ld\n", cycles, now.residentKb, now.heapBytes, now.descriptors, now.threads);
    std::fflush(stdout);
}

// What each thread's cache of freed blocks holds counts as in use, and hides what is lost: on again without one.
void leaveCachesOut(char **argv)
{
    if (std::getenv("GLIBC_TUNABLES") != nullptr)
        return;
    setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0", 1);
    execv("/proc/self/exe", argv);
}

} // namespace

int main(int argc, char **argv)
{
    const int cycles = argc == 2 ? std::atoi(argv[1]) : 0;
    if (cycles < 2 * kLines) {
        std::fprintf(stderr, "usage: %s CYCLES (%d or more)\n", argv[0], 2 * kLines);
        return 2;
    }
    leaveCachesOut(argv);
    const QTemporaryDir directory;
    std::printf("%8s %14s %12s %12s %8s\n", "cycles", "resident KB", "heap bytes", "descriptors", "threads");
    Held warm{};
    for (int i = 1; i <= cycles; ++i) {
        cycleThree(directory);
        if (i % (cycles / kLines) != 0)
            continue;
        const Held now = held();
        print(i, now);
        if (i == cycles / kLines)
            warm = now;
        check(now.descriptors == warm.descriptors, "descriptors are lost");
        check(now.threads <= warm.threads + kPooledThreads, "threads are left");
        check(now.heapBytes - warm.heapBytes <= kMostHeapBytes, "the heap grows");
        check(now.residentKb - warm.residentKb <= kMostResidentKb, "memory grows");
    }
    return 0;
}
