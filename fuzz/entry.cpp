// libFuzzer's entry. It calls that of the target that KV_FUZZ_ENTRY names.
#include "target.h"

extern "C" int KV_FUZZ_ENTRY(const uint8_t *data, size_t size);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    return KV_FUZZ_ENTRY(data, size);
}
