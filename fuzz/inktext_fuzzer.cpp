// Base64Decode of ink records: the decoded points are the text's bytes, read here in another way.
#include "openpad.h"
#include "target.h"

#include <QtEndian>

#include <algorithm>
#include <string>

namespace {

constexpr int kEntry = 24;

/// The bytes of a Base64 text whose other characters do not count.
std::string decoded(const char *text)
{
    const std::string alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (; *text != '\0'; ++text) {
        const size_t value = alphabet.find(*text);
        if (value == std::string::npos)
            continue;
        bits = bits << 6 | static_cast<unsigned>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count);
        }
    }
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fuzz::FuzzedPad &pad = fuzz::keptPad();
    const int type = pad.type();
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const int result = pad->Base64Decode(type, EBITI_INK, text.constData(), nullptr);
    if (*text.constData() == '\0') {
        KV_PROMISE(result == ARI_INVALID_PARAMETERS);
        return 0;
    }
    KV_PROMISE(result == ARI_SUCCESS);
    const std::string bytes = decoded(text.constData());
    const int points = static_cast<int>(bytes.size()) / kEntry;
    KV_PROMISE(pad->GetTotalDecodeInkPointsNumber(type) == (points > 0 ? points : ARI_INK_EMPTY));
    for (int i = 0; i < points; ++i) {
        const char *entry = bytes.data() + i * kEntry;
        KV_PROMISE(pad->GetDecodeInkPointData(type, i, INKDATATYPE_X) == qFromLittleEndian<qint16>(entry));
        KV_PROMISE(pad->GetDecodeInkPointData(type, i, INKDATATYPE_Y) == qFromLittleEndian<qint16>(entry + 2));
        KV_PROMISE(pad->GetDecodeInkPointData(type, i, INKDATATYPE_STROKEEND) == static_cast<unsigned char>(entry[6]));
    }
    const int behind = points > 0 ? ARI_INVALID_PARAMETERS : ARI_INK_EMPTY;
    KV_PROMISE(pad->GetDecodeInkPointData(type, points, INKDATATYPE_X) == behind);
    KV_PROMISE(pad->GetDecodeInkPointData(type, -1, INKDATATYPE_X) == behind);
    return 0;
}
