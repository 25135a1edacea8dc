// How much time the recorder adds to a packet on its way from the driver to the application.
#include "compare.h"
#include "driverinterface.h"
#include "simulatorcontrol.h"

#include <QTemporaryDir>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <vector>

namespace {

constexpr char kRecorder[] = "../simulator/recorder/libkvsignpaddrv.so";
constexpr char kDriver[] = "../simulator/libkvsignpaddrv.so";
constexpr int kRounds = 21;
constexpr double kPeriodUs = 5000; // 200 packets a second

void takePacket(int, int, int, int) { }

template <class Function>
Function entry(const char *path, const char *name)
{
    // Both stay loaded until the end: the recorder loads the driver too, and has to share its state with the benchmark.
    void *const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    void *const found = library == nullptr ? nullptr : dlsym(library, name);
    if (found == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(1);
    }
    return reinterpret_cast<Function>(found);
}

// The microseconds that a packet takes through the driver at this path.
double perPacket(const char *path, const std::vector<KVSIM_PACKET> &packets)
{
    static const auto send = entry<decltype(&KVSIM_SendPackets)>(kDriver, "KVSIM_SendPackets");
    if (entry<KVSPDAPI_Initial>(path, "KVSPDAPI_Initial")(KVS300_DEVICE, takePacket, nullptr) != KVSPDARI_SUCCESS)
        std::exit(1);
    const auto begin = std::chrono::steady_clock::now();
    send(packets.data(), static_cast<int>(packets.size()));
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
    entry<KVSPDAPI_UnInitial>(path, "KVSPDAPI_UnInitial")();
    return time.count() / static_cast<double>(packets.size());
}

} // namespace

int main()
{
    const QTemporaryDir directory;
    setenv("KVREC_FILE", qPrintable(directory.filePath("pen.kvrec")), 1);
    setenv("KVREC_DRIVER", kDriver, 1);
    const std::vector<KVSIM_PACKET> packets(5000, {1000, 900, 800, 1});
    std::vector<double> with;
    std::vector<double> without;
    std::vector<double> added;
    for (int round = 0; round < kRounds; ++round) {
        with.push_back(perPacket(kRecorder, packets));
        without.push_back(perPacket(kDriver, packets));
        added.push_back(with.back() - without.back());
    }
    std::printf("| with the recorder us | without us | added us | quartiles | share of a packet's period |\n"
                "|---|---|---|---|---|\n| %.2f | %.2f | %.2f | %.2f to %.2f | %.3f %% |\n",
        compare::quantile(with, 0.5), compare::quantile(without, 0.5), compare::quantile(added, 0.5),
        compare::quantile(added, 0.25), compare::quantile(added, 0.75),
        compare::quantile(added, 0.5) / kPeriodUs * 100);
    return 0;
}
