#include "settings.h"

#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>

namespace kvsim {

namespace {

/// An empty variable counts as unset.
std::string_view variable(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

[[noreturn]] void refuse(const char *name, std::string_view value, const char *reason)
{
    throw std::runtime_error(std::string(name) + "=" + std::string(value) + ": " + reason);
}

void readText(const char *name, std::string &value)
{
    if (const std::string_view text = variable(name); !text.empty())
        value = text;
}

void readCount(const char *name, int &value)
{
    const std::string_view text = variable(name);
    if (text.empty())
        return;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 0)
        refuse(name, text, "not a whole number from 0 on");
}

void readSpeed(const char *name, double &value)
{
    const std::string_view text = variable(name);
    if (text.empty())
        return;
    if (text == "max") {
        value = 0;
        return;
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= 0.001 && value <= 1e6))
        refuse(name, text, "neither a factor from 0.001 to 1000000 nor max");
}

} // namespace

Settings readSettings()
{
    Settings settings;
    readText("KVSIM_RECORDING", settings.recording);
    readSpeed("KVSIM_SPEED", settings.speed);
    readCount("KVSIM_DELAY_MS", settings.delayMs);
    readCount("KVSIM_REPEAT", settings.repeat);
    readCount("KVSIM_SCREEN_MS", settings.screenMs);
    readText("KVSIM_VERSION", settings.version);
    readText("KVSIM_PICTURES", settings.pictures);
    struct stat info
    {
    };
    if (!settings.pictures.empty() && (stat(settings.pictures.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)))
        refuse("KVSIM_PICTURES", settings.pictures, "not a directory");
    return settings;
}

} // namespace kvsim
