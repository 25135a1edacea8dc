#include "streambytes.h"

#include <qpdf/Pipeline.hh>

#include <stdexcept>

namespace documents {

namespace {

class Bounded : public Pipeline
{
public:
    explicit Bounded(qint64 most)
        : Pipeline("bounded", nullptr)
        , m_most(most)
    {
    }

    void write(unsigned char const *data, size_t size) override
    {
        if (static_cast<qint64>(size) > m_most - bytes.size())
            throw std::runtime_error("a stream is larger than it may be");
        bytes.append(reinterpret_cast<const char *>(data), static_cast<int>(size));
    }
    void finish() override { }

    QByteArray bytes;

private:
    const qint64 m_most;
};

} // namespace

QByteArray streamBytes(QPDFObjectHandle stream, qint64 most)
{
    Bounded bounded(most);
    if (!stream.pipeStreamData(&bounded, 0, qpdf_dl_generalized))
        throw std::runtime_error("a stream cannot be decoded, or is larger than it may be");
    return bounded.bytes;
}

QByteArray contentBytes(QPDFObjectHandle page, qint64 most)
{
    Bounded bounded(most);
    page.pipePageContents(&bounded);
    return bounded.bytes;
}

} // namespace documents
