// kvsign's reader of JSON.
#include "readers.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::readAndWriteAgain("json", data, size);
    return 0;
}
