#include "streambytes.h"

#include <qpdf/Pipeline.hh>

#include <stdexcept>
#include <vector>

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
        isFull = isFull || static_cast<qint64>(size) > m_most - bytes.size();
        if (isFull)
            throw std::runtime_error("a stream is larger than it may be");
        bytes.append(reinterpret_cast<const char *>(data), static_cast<int>(size));
    }
    void finish() override { }

    QByteArray bytes;
    bool isFull = false;

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

PageBytes contentBytes(QPDFObjectHandle page, qint64 most)
{
    QPDFObjectHandle contents = page.getKey("/Contents");
    Bounded bounded(most);
    PageBytes content;
    for (QPDFObjectHandle stream :
        contents.isArray() ? contents.getArrayAsVector() : std::vector<QPDFObjectHandle>{contents}) {
        if (!stream.isStream())
            continue;
        bool isTried = false;
        const bool isDone = stream.pipeStreamData(&bounded, &isTried, 0, qpdf_dl_generalized, true, true);
        content.isBroken = content.isBroken || !isTried || !isDone;
        if (bounded.isFull)
            throw std::runtime_error("a page's content is larger than it may be");
        bounded.bytes += '\n';
    }
    content.bytes = bounded.bytes;
    return content;
}

} // namespace documents
