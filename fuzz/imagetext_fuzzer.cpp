// Base64Decode of image texts: the first byte chooses the type, the rest is the image's file, or the text as it stands.
#include "openpad.h"
#include "target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::FuzzedPad &pad = fuzz::keptPad();
    fuzz::Bytes bytes(data, size);
    const int choice = bytes.byte();
    const int type = EBITI_BITMAP + choice % 3;
    const bool isText = (choice & 0x80) != 0;
    const QByteArray rest = bytes.rest();
    const QByteArray text = isText ? rest : rest.toBase64();
    wchar_t path[] = L"/dev/null";
    const int result = pad->Base64Decode(pad.type(), type, text.constData(), path);
    KV_PROMISE(result == ARI_SUCCESS || result == ARI_INK_EMPTY
        || (result == ARI_INVALID_PARAMETERS && *text.constData() == '\0'));
    KV_PROMISE(pad->GetTotalDecodeInkPointsNumber(pad.type()) == ARI_INK_EMPTY);
    return 0;
}
