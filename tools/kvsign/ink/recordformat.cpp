#include "recordformat.h"

#include "base64reader.h"
#include "bufferedwriter.h"
#include "inkbytes.h"

namespace {

class RecordSource : public PointSource
{
public:
    RecordSource(QIODevice &device, const QString &name)
        : m_bytes(device, name)
        , m_name(name)
    {
    }

    bool next(POINTDATA &point) override
    {
        char bytes[inkbytes::kPointSize];
        const int size = m_bytes.read(bytes, inkbytes::kPointSize);
        if (size == inkbytes::kTerminatorSize || (size == 0 && m_points == 0))
            return false;
        if (size != inkbytes::kPointSize)
            throw failed(
                QString("%1: the record ends inside point %2: %3 bytes where a point of %4 or the last byte is "
                        "expected, at byte %5 of the record")
                    .arg(m_name)
                    .arg(m_points + 1)
                    .arg(size)
                    .arg(inkbytes::kPointSize)
                    .arg(m_points * inkbytes::kPointSize));
        const unsigned char flag = static_cast<unsigned char>(bytes[inkbytes::kStrokeEnd]);
        if (flag > 1)
            throw failed(QString("%1: the stroke end of point %2 is %3, not 0 or 1, at byte %4 of the record")
                             .arg(m_name)
                             .arg(m_points + 1)
                             .arg(flag)
                             .arg(m_points * inkbytes::kPointSize + inkbytes::kStrokeEnd));
        point = inkbytes::pointOf(bytes);
        ++m_points;
        return true;
    }

private:
    Base64Reader m_bytes;
    QString m_name;
    qint64 m_points = 0;
};

class RecordSink : public PointSink
{
public:
    explicit RecordSink(QIODevice &device)
        : m_text(device)
    {
    }

    void put(const POINTDATA &point) override
    {
        static_assert(inkbytes::kPointSize % 3 == 0, "each point has groups of its own");
        inkbytes::writePoint(point, m_bytes);
        m_text.buffer() += QByteArray::fromRawData(m_bytes, inkbytes::kPointSize).toBase64();
        m_text.spill();
    }

    void finish() override
    {
        m_text.buffer() += QByteArray(inkbytes::kTerminatorSize, '\0').toBase64();
        m_text.flush();
    }

private:
    BufferedWriter m_text;
    char m_bytes[inkbytes::kPointSize] = {};
};

} // namespace

std::unique_ptr<PointSource> readRecord(QIODevice &device, const QString &name)
{
    return std::make_unique<RecordSource>(device, name);
}

std::unique_ptr<PointSink> writeRecord(QIODevice &device)
{
    return std::make_unique<RecordSink>(device);
}
