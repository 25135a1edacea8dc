/// @file
/// The diagnostics log: tick source, writers, shared buffers and the macros that every log site uses.
///
/// The log never takes a lock: all threads share the buffers, and lines logged at the same time may mix. Each line
/// opens, writes and closes its file, so that nothing is lost when the process dies. Other users can plant files under
/// the logs' names in /tmp: anything but a regular file of our own is left alone.
#ifndef LOGFILEUTIL_H
#define LOGFILEUTIL_H

#include "kvsignpadsdk_global.h"

#include <cstdint>

KVSIGNPADSDK_BEGIN
// Message buffers, exported with the switch g_bEnableLog. The three value buffers are part of the symbol surface only.
extern KVSIGNPADSDK_EXPORT char g_cKeyBuf[256];
extern KVSIGNPADSDK_EXPORT char g_cValueBuf[256];
extern KVSIGNPADSDK_EXPORT wchar_t g_wszKeyBuf[256];
extern KVSIGNPADSDK_EXPORT wchar_t g_wszValueBuf[256];
extern KVSIGNPADSDK_EXPORT char g_cKeyBuf_InThread[256];
extern KVSIGNPADSDK_EXPORT char g_cValueBuf_InThread[256];
KVSIGNPADSDK_END

/// Milliseconds of the monotonic clock.
uint64_t GetTickCount();

/// Appends "[key]:value, tail" to "/tmp/kvsignpadsdk.log". Does nothing when the file cannot be opened or is not ours.
void MyDebug(const char *key, const char *value, const char *tail);

/// The same for wide texts. Each is converted by the process's locale and cut to 255 bytes.
void MyDebug(const wchar_t *key, const wchar_t *value, const wchar_t *tail);

/// The same into "/tmp/kvsignpadsdk_inthread.log", for paint handlers and fingerprint display threads.
void MyDebug_InsideThread(const char *key, const char *value, const char *tail);

namespace logging {

/// A line's key in two pieces, joined only when the line is written: "KVS300_" and "Clear()".
struct Key
{
    const char *scope;
    const char *function;
};

inline bool isOn()
{
    return __builtin_expect(__atomic_load_n(&g_bEnableLog, __ATOMIC_RELAXED), false);
}

/// What "<%ld>" at the head of a message shows.
inline long tick()
{
    return static_cast<long>(GetTickCount());
}

/// What "%lx" shows of a pointer.
template <class T>
unsigned long address(T *pointer)
{
    return reinterpret_cast<unsigned long>(pointer);
}

/// What "%x" shows of one.
template <class T>
unsigned shortAddress(T *pointer)
{
    return static_cast<unsigned>(address(pointer));
}

[[gnu::cold, gnu::noinline, gnu::format(printf, 2, 3)]] void write(const Key &key, const char *format, ...);
[[gnu::cold, gnu::noinline, gnu::format(printf, 2, 3)]] void writeInsideThread(const Key &key, const char *format, ...);
[[gnu::cold, gnu::noinline]] void writeWide(const Key &key, const wchar_t *format, ...);

} // namespace logging

// The message stands verbatim at its site, so that a line from the field greps to its source.
#define KV_LOG_TO(writer, key, message, ...)                                                                           \
    do {                                                                                                               \
        if (logging::isOn())                                                                                           \
            logging::writer(key, message, logging::tick(), ##__VA_ARGS__);                                             \
    } while (false)
#define KV_LOG(key, message, ...) KV_LOG_TO(write, key, message, ##__VA_ARGS__)
#define KV_LOG_INSIDE_THREAD(key, message, ...) KV_LOG_TO(writeInsideThread, key, message, ##__VA_ARGS__)
#define KV_LOG_WIDE(key, message, ...) KV_LOG_TO(writeWide, key, L##message, ##__VA_ARGS__)

#endif
