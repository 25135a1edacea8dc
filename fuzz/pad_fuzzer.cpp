// Packets and calls into each of the instance classes. The first bytes choose the class, the canvas and what the driver
// says when it is opened; PadCalls does the rest.
#include "padcalls.h"

#include <cstdio>

namespace {

constexpr int kSizes[] = {0, 1, 2, 67, 128, 200, 301, 417};

void setUpDriver(fuzz::Bytes &bytes)
{
    const fuzz::Driver &driver = fuzz::Driver::instance();
    driver.reset();
    driver.setScreenDelay(0);
    switch (bytes.byte()) {
    case 1:
        driver.setText("GetDevicePartsVersion", bytes.take(bytes.upTo(40)).constData());
        break;
    case 2:
        driver.setResult("Initial", static_cast<int8_t>(bytes.byte()));
        break;
    case 3: {
        const KVSIM_PACKET early[] = {{500, 500, 100, KVSPDARI_PS_PEN_DOWN}, {bytes.word(), 900, bytes.word(), 1}};
        driver.setReadingThreadPackets(early, 2);
        break;
    }
    default:
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::Bytes bytes(data, size);
    const int pad = bytes.upTo(9);
    const int width = kSizes[bytes.upTo(7)];
    const int height = kSizes[bytes.upTo(7)];
    fuzz::closeKeptPad();
    setUpDriver(bytes);
    const bool logged = bytes.byte() == 1;
    g_bEnableLog = logged;
    {
        fuzz::FuzzedPad open(kFamilies[static_cast<size_t>(pad / 2)], pad % 2 == 0, width, height);
        fuzz::PadCalls(open, bytes).run();
    }
    g_bEnableLog = false;
    if (logged) {
        std::remove("/tmp/kvsignpadsdk.log");
        std::remove("/tmp/kvsignpadsdk_inthread.log");
    }
    return 0;
}
