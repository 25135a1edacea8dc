#include "jpegmarkers.h"

namespace jpegmarkers {

namespace {

enum Marker
{
    None = -1,
    LowestSegment = 0xc0, ///< libjpeg knows no segments below it
    FirstRestart = 0xd0,
    LastRestart = 0xd7,
    EndOfImage = 0xd9,
    StartOfScan = 0xda
};

class Reader
{
public:
    explicit Reader(const QByteArray &bytes)
        : m_bytes(bytes)
    {
    }

    int byteAt(int offset) const
    {
        const qint64 at = m_at + offset;
        return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[static_cast<int>(at)]) : 0;
    }

    /// Skips to the next marker, over a scan's data for example. Leaves the reader at the segment's length.
    int nextMarker()
    {
        for (; m_at + 1 < m_bytes.size(); ++m_at) {
            if (byteAt(0) == 0xff && byteAt(1) != 0 && byteAt(1) != 0xff) {
                m_at += 2;
                return byteAt(-1);
            }
        }
        return None;
    }

    void skipSegment() { m_at += byteAt(0) << 8 | byteAt(1); }

private:
    const QByteArray &m_bytes;
    qint64 m_at = 2; ///< after the start-of-image marker
};

bool isFrame(int marker)
{
    return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}

// Progressive frames come in several scans over the picture.
bool isProgressive(int marker)
{
    return (marker & 3) == 2;
}

} // namespace

Work workOf(const QByteArray &bytes)
{
    Work work;
    if (!bytes.startsWith("\xff\xd8"))
        return work;
    Reader reader(bytes);
    for (int marker = reader.nextMarker(); marker != None && marker != EndOfImage; marker = reader.nextMarker()) {
        // Restart markers and those below have no segment.
        if (marker < LowestSegment || (marker >= FirstRestart && marker <= LastRestart))
            continue;
        if (isFrame(marker)) {
            work.planes = reader.byteAt(7);
            work.keepsCoefficients = isProgressive(marker);
        }
        if (marker == StartOfScan) {
            ++work.scans;
            work.keepsCoefficients = work.keepsCoefficients || reader.byteAt(2) < work.planes;
        }
        reader.skipSegment();
    }
    return work;
}

} // namespace jpegmarkers
