// Runs the scenarios in C++; bindings/scenarios/table.py says what each does.
#include <signpad.hpp>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <iostream>
#include <map>
#include <thread>

namespace {

using namespace std::chrono_literals;

kv::Model model;
std::filesystem::path driver;

class Answer
{
public:
    template <class Value>
    Answer &add(const char *name, const Value &value)
    {
        m_text += (m_text.empty() ? "\"" : ", \"") + std::string(name) + "\": " + json(value);
        return *this;
    }
    std::string text() const { return "{" + m_text + "}"; }

private:
    static std::string json(bool value) { return value ? "true" : "false"; }
    static std::string json(int value) { return std::to_string(value); }
    static std::string json(double value) { return std::to_string(value); }
    static std::string json(const std::string &value) { return value.empty() ? "null" : '"' + value + '"'; }

    std::string m_text;
};

kv::Pad openPad()
{
    kv::Pad pad(model, kv::Size{400, 226}, driver);
    pad.setPenWidth(2);
    pad.setPenColor({0, 0, 128});
    void *const simulator = dlopen("libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD);
    if (!simulator || reinterpret_cast<int (*)()>(dlsym(simulator, "KVSIM_EndDelay"))() != 0)
        throw std::runtime_error("the recording does not begin");
    dlclose(simulator);
    return pad;
}

std::string nameOf(std::optional<kv::Tap> tap)
{
    return !tap ? "" : *tap == kv::Tap::Confirm ? "confirm" : "cancel";
}

std::string nameOf(std::error_code code)
{
    static const char *const kNames[] = {"", "DriverNotFound", "PadNotFound", "PadLost", "AlreadyOpen", "PadClosed",
        "NotSupported", "NoInk", "NotSaved", "CommandFailed", "VersionMismatch"};
    return kNames[code.value()];
}

template <class Action>
std::string error(Action action)
{
    try {
        action();
    } catch (const kv::PadError &failure) {
        return nameOf(failure.code());
    } catch (const std::invalid_argument &) {
        return "InvalidArgument";
    }
    return "";
}

void write(const char *name, const kv::Bytes &contents)
{
    std::ofstream(name, std::ios::binary).write(reinterpret_cast<const char *>(contents.data()), long(contents.size()));
}

Answer capture()
{
    kv::Pad pad = openPad();
    const std::optional<kv::Tap> tap = pad.wait(60s);
    write("text.png", pad.picture(kv::ImageKind::Png));
    write("opaque.png", pad.picture(kv::ImageKind::Png, false));
    write("text.jpg", pad.picture(kv::ImageKind::Jpeg));
    write("text.bmp", pad.picture(kv::ImageKind::Bmp));
    std::ofstream("text.svg") << pad.svg();
    const std::vector<kv::Point> ink = pad.ink();
    kv::Bytes record(ink.size() * sizeof(kv::Point) + 1);
    std::memcpy(record.data(), ink.data(), record.size() - 1);
    write("record.ink", record);
    for (const char *file : {"saved.png", "saved.jpg", "saved.bmp", "saved.pdf", "saved.svg"})
        pad.save(file);
    const auto ends = std::count_if(ink.begin(), ink.end(), [](const kv::Point &point) { return point.bStrokeEnd; });
    return Answer().add("tap", nameOf(tap)).add("points", int(ink.size())).add("ends", int(ends));
}

Answer path()
{
    kv::Pad pad = openPad();
    const std::optional<kv::Tap> tap = pad.wait(60s);
    pad.save(std::filesystem::u8path("signature ✍️ 😀 ü.png"));
    return Answer().add("tap", nameOf(tap));
}

Answer cancel()
{
    kv::Pad pad = openPad();
    const std::optional<kv::Tap> tap = pad.wait(std::chrono::milliseconds::max());
    return Answer().add("tap", nameOf(tap)).add("points", pad.points());
}

Answer timeout()
{
    kv::Pad pad = openPad();
    Answer answer;
    answer.add("tap", nameOf(pad.wait(300ms))).add("points", pad.points());
    answer.add("picture", error([&] { pad.picture(kv::ImageKind::Png); }));
    return answer.add("file", nameOf(pad.trySave("nothing.png")));
}

Answer unplug()
{
    kv::Pad pad = openPad();
    std::error_code code;
    pad.wait(60s, code);
    return Answer().add("error", nameOf(code)).add("points", pad.points());
}

Answer fingerprint()
{
    kv::Pad pad = openPad();
    Answer answer;
    answer.add("before", error([&] { pad.fingerprint(); }));
    pad.placeFingerprint({10, 20, 104, 144}, {300, 200});
    answer.add("outside", error([&] { pad.placeFingerprint({290, 20, 104, 144}, {300, 200}); }));
    pad.placeFingerprint({10, 20, 104, 144}, {300, 200});
    answer.add("tap", nameOf(pad.wait(60s)));
    write("text.png", pad.picture(kv::ImageKind::Png));
    write("fingerprint.png", pad.fingerprint());
    return answer;
}

Answer live()
{
    kv::Pad pad = openPad();
    std::mutex mutex;
    int images = 0;
    kv::Bytes newest;
    pad.onLiveImage(kv::ImageKind::Png, [&](const kv::Bytes &image) {
        const std::lock_guard<std::mutex> lock(mutex);
        newest = image;
        ++images;
    });
    pad.wait(60s);
    write("text.png", pad.picture(kv::ImageKind::Png));
    const std::lock_guard<std::mutex> lock(mutex);
    return Answer().add("images", images > 1).add("same", newest == pad.picture(kv::ImageKind::Png));
}

long resident()
{
    long all = 0;
    long pages = 0;
    std::ifstream("/proc/self/statm") >> all >> pages;
    return pages * 4096;
}

long files()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

Answer cycles()
{
    long memory = 0;
    long open = 0;
    for (int count = 0; count < 1000; ++count) {
        kv::Pad pad(model, {400, 226}, driver);
        if (count == 99) {
            memory = resident();
            open = files();
        }
    }
    return Answer().add("cycles", 1000).add("grown", resident() - memory > 16 << 20 || files() > open);
}

Answer collect()
{
    return cancel(); // C++ has no garbage collector, so this is the same as waiting
}

Answer inside()
{
    int taps = 0;
    kv::Pad pad = openPad();
    while (pad.isOpen() && pad.wait(60s)) {
        ++taps;
        pad.close();
    }
    openPad().close();
    return Answer().add("taps", taps).add("closed", !pad.isOpen());
}

Answer exitInside()
{
    kv::Pad pad = openPad();
    pad.wait(60s);
    std::exit(7); // does not run the pad's destructor
}

Answer forgotten()
{
    static kv::Pad *const pad = new kv::Pad(openPad());
    return Answer().add("open", pad->isOpen());
}

Answer errors()
{
    Answer answer;
    std::filesystem::create_directory("empty");
    answer.add("driver", error([] { kv::Pad(model, {400, 226}, "empty"); }));
    answer.add("nowhere", error([] { kv::Pad(model, {400, 226}, "not-there/below"); }));
    kv::Pad pad = openPad();
    pad.wait(60s);
    answer.add("second", error([] { openPad(); }));
    answer.add("unsupported", error([&] { pad.onLiveImage(kv::ImageKind::Png, [](const kv::Bytes &) {}); }));
    answer.add("width", error([&] { pad.setPenWidth(11); }));
    answer.add("color", error([&] { pad.setPenColor({0, 0, 256}); }));
    answer.add("ending", error([&] { pad.save("signature"); }));
    answer.add("folder", error([&] { pad.save("missing/signature.png"); }));
    pad.close();
    answer.add("closed", error([&] { pad.points(); }));
    return answer.add("model", error([] { kv::Pad(static_cast<kv::Model>(99), {400, 226}, driver); }));
}

Answer missing()
{
    std::error_code first;
    std::error_code again;
    kv::Pad::open(model, {400, 226}, first, driver);
    kv::Pad::open(model, {400, 226}, again, driver);
    return Answer().add("first", nameOf(first)).add("again", nameOf(again));
}

Answer lowlevel()
{
    const std::filesystem::path before = std::filesystem::current_path();
    const int points = KVS300_GetTotalInkPointsNumber(KVS300_DEVICE);
    openPad().close();
    // Every entry of the table but the model's name and type, where a family has it.
    int functions = 0;
    for (const kv::detail::Family &family : kv::detail::kFamilies) {
        void *slots[sizeof family / sizeof(void *)];
        std::memcpy(slots, &family, sizeof family);
        functions += int(std::count_if(slots + 2, std::end(slots), [](void *slot) { return slot; }));
    }
    const bool directory = std::filesystem::current_path() == before;
    return Answer().add("functions", functions).add("points", points).add("directory", directory);
}

template <class Action>
double timed(int count, Action action)
{
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i)
        action();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count() / count;
}

/// For bench/languages: nanoseconds of a call as it is and through the class, milliseconds for all points.
Answer bench()
{
    kv::Pad pad = openPad();
    pad.wait(60s);
    long sum = 0;
    const double raw = timed(2000000, [&] { sum += KVS300_GetTotalInkPointsNumber(KVS300_DEVICE); });
    const double call = timed(2000000, [&] { sum += pad.points(); });
    const double ink = timed(200, [&] {
        for (const kv::Point &point : pad.ink())
            sum += point.nX;
    });
    return Answer()
        .add("used", sum != 0)
        .add("raw_ns", raw)
        .add("call_ns", call)
        .add("ink_ms", ink / 1e6)
        .add("points", pad.points());
}

} // namespace

int main(int, char **arguments)
{
    static const std::map<std::string, Answer (*)()> scenarios = {{"capture", capture}, {"path", path},
        {"cancel", cancel}, {"timeout", timeout}, {"unplug", unplug}, {"fingerprint", fingerprint}, {"live", live},
        {"cycles", cycles}, {"collect", collect}, {"inside", inside}, {"exit", exitInside}, {"forgotten", forgotten},
        {"errors", errors}, {"missing", missing}, {"lowlevel", lowlevel}, {"bench", bench}};
    static const std::map<std::string, kv::Model> models = {{"S210", kv::Model::S210}, {"S300", kv::Model::S300},
        {"S310X", kv::Model::S310X}, {"R800", kv::Model::R800}, {"M450", kv::Model::M450}};
    model = models.at(arguments[2]);
    driver = arguments[3];
    std::cout << scenarios.at(arguments[1])().text() << std::endl;
    return 0;
}
