// What a signer notices: a driver's thread sends packets at 240 Hz while the widget is shown, with and without the live
// push. Prints how long the handler takes for a packet, and how often the widget is repainted. A headless pad comes
// first, as a reference: nothing else uses its canvas, so any delay of its packets comes from the machine.
#include "benchpad.h"
#include "compare.h"

#include <QApplication>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace {

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
    int paints = 0;
};

void ignore(char *) { }

void measure(const QSize &size, bool shown, int pushType, const char *pushName, double seconds)
{
    using Clock = std::chrono::steady_clock;
    const BenchPad pad(*familyOfName("S210"), size, shown);
    PaintCounter counter;
    if (shown)
        pad.widget()->installEventFilter(&counter);
    if (pushType != 0)
        KVS210_SetRealTimeSignBase64DataCallback(KVS210_DEVICE, pushType, ignore);
    std::atomic<bool> done{false};
    std::vector<double> held;
    std::thread driver([&] {
        const auto period = std::chrono::nanoseconds(1000000000 / 240);
        auto next = Clock::now();
        for (size_t i = 0; i < static_cast<size_t>(240 * seconds); ++i, next += period) {
            std::this_thread::sleep_until(next);
            const auto before = Clock::now();
            pad.send(pad.packets()[i % pad.packets().size()]);
            held.push_back(std::chrono::duration<double, std::micro>(Clock::now() - before).count());
        }
        done = true;
    });
    const auto start = Clock::now();
    while (!done)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    driver.join();
    const double took = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("| %s | %s | %s | %.0f | %.0f | %.0f | %.0f |\n", sizeName(size).c_str(), shown ? "widget" : "headless",
        pushName, compare::quantile(held, 0.5), compare::quantile(held, 0.99), compare::quantile(held, 0.999),
        counter.paints / took);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const double seconds = argc > 1 ? std::atof(argv[1]) : 6;
    std::printf(
        "| canvas | host | live push | median us | 99 %% us | 99.9 %% us | repaints a second |\n|---|---|---|---|---|---|---|\n");
    for (const QSize &size : {QSize(800, 600), QSize(1920, 1080)}) {
        measure(size, false, 0, "off", seconds);
        measure(size, true, 0, "off", seconds);
        measure(size, true, EBITI_JPEG, "JPEG", seconds);
        measure(size, true, EBITI_PNG, "PNG", seconds);
    }
    return 0;
}
