// libFuzzer's entry, which leads to that of the one target that KV_FUZZ_ENTRY names.
#include "target.h"

extern "C" int KV_FUZZ_ENTRY(const uint8_t *data, size_t size);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return KV_FUZZ_ENTRY(data, size);
}
