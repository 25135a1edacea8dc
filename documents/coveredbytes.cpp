#include "coveredbytes.h"

#include <algorithm>

namespace documents {

namespace {

constexpr qint64 kMostMessage = 1 << 24;

bool isHexOrBlank(char byte)
{
    return QByteArray("0123456789abcdefABCDEF \t\r\n\f").contains(byte) || byte == '\0';
}

/// The length of a DER element with its header; 0 when that cannot be read. The rest of the bytes is padding.
int derSize(const QByteArray &bytes)
{
    const auto *place = reinterpret_cast<const unsigned char *>(bytes.constData());
    const unsigned char *const begin = place;
    long size = 0;
    int tag = 0, kind = 0;
    const int answer = ASN1_get_object(&place, &size, &tag, &kind, bytes.size());
    opensslReason();
    if ((answer & 0x80) != 0 || (answer & 1) != 0)
        return (answer & 0x80) != 0 ? 0 : bytes.size();
    return static_cast<int>(std::min<long>(size + (place - begin), bytes.size()));
}

bool readRanges(QPDFObjectHandle ranges, CoveredBytes &covered)
{
    if (!ranges.isArray() || ranges.getArrayNItems() != 4)
        return false;
    qint64 numbers[4] = {};
    for (int i = 0; i < 4; ++i) {
        if (!ranges.getArrayItem(i).isInteger())
            return false;
        numbers[i] = ranges.getArrayItem(i).getIntValue();
        if (numbers[i] < 0 || numbers[i] > qint64{1} << 50)
            return false;
    }
    covered.gapBegin = numbers[1];
    covered.gapEnd = numbers[2];
    covered.end = numbers[2] + numbers[3];
    return numbers[0] == 0 && covered.gapBegin + 2 <= covered.gapEnd;
}

} // namespace

CoveredBytes coveredBytes(const Source &source, QPDFObjectHandle signature)
{
    CoveredBytes covered;
    if (!readRanges(signature.getKey("/ByteRange"), covered))
        covered.problem = "its ranges of bytes make no sense";
    else if (covered.end > source.size())
        covered.problem = "the file is shorter than what was signed";
    else if (covered.gapEnd - covered.gapBegin > kMostMessage)
        covered.problem = "it leaves out too much of the file";
    if (!covered.problem.isEmpty())
        return covered;
    const QByteArray gap = source.read(covered.gapBegin, covered.gapEnd - covered.gapBegin);
    if (!gap.startsWith('<') || !gap.endsWith('>') || !std::all_of(gap.begin() + 1, gap.end() - 1, isHexOrBlank)) {
        covered.problem = "it leaves out more of the file than itself";
        return covered;
    }
    covered.message = QByteArray::fromHex(gap.mid(1, gap.size() - 2));
    QPDFObjectHandle contents = signature.getKey("/Contents");
    const std::string own = contents.isString() ? contents.getStringValue() : std::string();
    if (own != covered.message.toStdString())
        covered.problem = "the place that it leaves out is not its own";
    covered.message.truncate(derSize(covered.message));
    return covered;
}

QByteArray CoveredBytes::digest(
    const Source &source, const EVP_MD *kind, const std::function<void(qint64)> &progress) const
{
    Digest digest(kind);
    const auto take = [&](const char *bytes, qint64 count) {
        digest.add(bytes, count);
        progress(count);
    };
    source.forEach(0, gapBegin, take);
    source.forEach(gapEnd, end, take);
    return digest.result();
}

} // namespace documents
