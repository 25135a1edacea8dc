// kvsign's reader of W3C InkML.
#include "readers.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::readAndWriteAgain("inkml", data, size);
    return 0;
}
