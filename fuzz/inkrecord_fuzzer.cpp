// kvsign's reader of the Base64 ink record.
#include "readers.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::readAndWriteAgain("ink", data, size);
    return 0;
}
