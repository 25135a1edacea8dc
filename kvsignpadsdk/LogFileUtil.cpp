#include "LogFileUtil.h"

#include "ownfile.h"
#include "uncancelled.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>
#include <iterator>
#include <unistd.h>

bool g_bEnableLog = false;
char g_cKeyBuf[256];
char g_cValueBuf[256];
wchar_t g_wszKeyBuf[256];
wchar_t g_wszValueBuf[256];
char g_cKeyBuf_InThread[256];
char g_cValueBuf_InThread[256];

namespace {

constexpr int kLongestKey = 128;

void append(const char *fileName, const char *key, const char *value, const char *tail)
{
    const Uncancelled whole; // a cancelled thread still finishes its line and closes the file
    const int file = ownfile::openToAppend(fileName);
    if (file < 0)
        return;
    dprintf(file, "[%s]:%s, %s", key, value, tail);
    close(file);
}

struct JoinedKey
{
    explicit JoinedKey(const logging::Key &key) { std::snprintf(text, sizeof text, "%s%s", key.scope, key.function); }
    char text[kLongestKey];
};

// wcstombs() leaves the buffer undefined when the locale cannot express the text, so log it as empty.
struct Narrowed
{
    explicit Narrowed(const wchar_t *wide)
    {
        const size_t length = std::wcstombs(text, wide, sizeof text);
        text[length == static_cast<size_t>(-1) ? 0 : std::min(length, sizeof text - 1)] = '\0';
    }
    char text[256];
};

} // namespace

uint64_t GetTickCount()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

void MyDebug(const char *key, const char *value, const char *tail)
{
    append("/tmp/kvsignpadsdk.log", key, value, tail);
}

void MyDebug(const wchar_t *key, const wchar_t *value, const wchar_t *tail)
{
    MyDebug(Narrowed(key).text, Narrowed(value).text, Narrowed(tail).text);
}

void MyDebug_InsideThread(const char *key, const char *value, const char *tail)
{
    append("/tmp/kvsignpadsdk_inthread.log", key, value, tail);
}

namespace logging {

void write(const Key &key, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(g_cKeyBuf, sizeof g_cKeyBuf, format, arguments);
    va_end(arguments);
    MyDebug(JoinedKey(key).text, g_cKeyBuf, "\n");
}

void writeInsideThread(const Key &key, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(g_cKeyBuf_InThread, sizeof g_cKeyBuf_InThread, format, arguments);
    va_end(arguments);
    MyDebug_InsideThread(JoinedKey(key).text, g_cKeyBuf_InThread, "\n");
}

void writeWide(const Key &key, const wchar_t *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vswprintf(g_wszKeyBuf, std::size(g_wszKeyBuf), format, arguments);
    va_end(arguments);
    wchar_t wideKey[kLongestKey];
    std::swprintf(wideKey, kLongestKey, L"%s%s", key.scope, key.function);
    MyDebug(wideKey, g_wszKeyBuf, L"\n");
}

} // namespace logging
