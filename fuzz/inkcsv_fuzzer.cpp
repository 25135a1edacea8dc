// kvsign's reader of comma-separated values.
#include "readers.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::readAndWriteAgain("csv", data, size);
    return 0;
}
