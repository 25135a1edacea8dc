/// @file
/// Shared by all fuzz targets. Each NAME_fuzzer.cpp defines libFuzzer's entry below. The plain tests compile the same
/// files with the entry renamed, and replay the inputs in this directory.
#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include <QByteArray>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace fuzz {

/// Makes a QApplication without a screen, unless the process has an application already.
void needApplication();

/// Ends the process when a promise is broken, so that the input is kept.
void promise(bool kept, const char *what);

/// Reads an input from its front. Behind its end everything is 0.
class Bytes
{
public:
    Bytes(const uint8_t *data, size_t size)
        : m_data(data)
        , m_size(size)
    {
    }

    bool atEnd() const { return m_size == 0; }
    uint8_t byte();
    int signedByte();
    int16_t word();
    int32_t number();

    /// A value of 0 to most.
    int upTo(int most) { return byte() % (most + 1); }

    /// The next bytes, or as many of them as there are.
    QByteArray take(int count);
    QByteArray rest() { return take(static_cast<int>(m_size)); }

private:
    const uint8_t *m_data;
    size_t m_size;
};

} // namespace fuzz

#define KV_PROMISE(condition) fuzz::promise(condition, #condition)

#endif
