#include "revision.h"

#include "crossreference.h"
#include "problem.h"

#include <QByteArray>

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDFWriter.hh>

#include <openssl/rand.h>

#include <exception>
#include <vector>

namespace documents {

namespace {

/// qCompress() puts four bytes in front of the zlib stream, which are cut off here.
std::string deflated(const std::string &data)
{
    constexpr int kOwnHeader = 4;
    const QByteArray packed = qCompress(reinterpret_cast<const uchar *>(data.data()), static_cast<int>(data.size()), 9);
    return packed.mid(kOwnHeader).toStdString();
}

std::string randomBytes(int count)
{
    std::string bytes(static_cast<size_t>(count), '\0');
    RAND_bytes(reinterpret_cast<unsigned char *>(bytes.data()), count);
    return bytes;
}

/// Takes what QPDFWriter writes. The writer's destructor writes too, where nothing may be thrown: a failure is kept.
class ToSource : public Pipeline
{
public:
    explicit ToSource(Source &target)
        : Pipeline("document", nullptr)
        , m_target(target)
    {
    }

    void write(unsigned char const *data, size_t size) override
    {
        if (failure)
            return;
        try {
            m_target.write(m_target.size(), reinterpret_cast<const char *>(data), static_cast<qint64>(size));
        } catch (...) {
            failure = std::current_exception();
        }
    }
    void finish() override { }

    std::exception_ptr failure;

private:
    Source &m_target;
};

} // namespace

Revision::Revision(Reader &reader)
    : m_reader(reader)
    , m_next(reader.firstNew)
{
}

// To make a new object, qpdf looks at every object of the file first. Choosing the number here costs nothing.
QPDFObjectHandle Revision::add(QPDFObjectHandle object)
{
    const QPDFObjGen number(m_next++, 0);
    pdf().replaceObject(number, object);
    m_changed.insert(number);
    return pdf().getObject(number);
}

QPDFObjectHandle Revision::addStream(QPDFObjectHandle dictionary, const std::string &data)
{
    std::string bytes = data;
    if (!dictionary.hasKey("/Filter")) {
        const std::string packed = deflated(data);
        if (packed.size() + 21 < data.size()) { // 21: the length of the /Filter entry
            bytes = packed;
            dictionary.replaceKey("/Filter", QPDFObjectHandle::newName("/FlateDecode"));
        }
    }
    if (m_reader.rewrite != Rewrite::None) {
        QPDFObjectHandle stream = pdf().newStream();
        const QPDFObjectHandle filter = dictionary.getKey("/Filter");
        stream.replaceDict(dictionary);
        stream.replaceStreamData(bytes, filter, QPDFObjectHandle::newNull());
        m_next = std::max(m_next, stream.getObjectID() + 1);
        return stream;
    }
    dictionary.replaceKey("/Length", QPDFObjectHandle::newInteger(static_cast<long long>(bytes.size())));
    const QPDFObjGen number(m_next++, 0);
    m_streams[number] = {dictionary.unparse(), bytes};
    m_changed.insert(number);
    // qpdf drops keys whose value is null, so put an empty dictionary in the stream's place.
    pdf().replaceObject(number, QPDFObjectHandle::newDictionary());
    return pdf().getObject(number);
}

void Revision::skipNumbersOfOthers()
{
    m_next = std::max(m_next, static_cast<int>(pdf().getObjectCount()) + 1);
}

void Revision::touch(const QPDFObjectHandle &object)
{
    m_changed.insert(object.getObjGen());
}

QPDFObjectHandle Revision::partIn(QPDFObjectHandle owner, const std::string &key, const QPDFObjectHandle &otherwise)
{
    QPDFObjectHandle part = owner.getKey(key);
    if (part.getTypeCode() != QPDFObjectHandle(otherwise).getTypeCode()) {
        part = otherwise;
        owner.replaceKey(key, part);
    }
    if (part.isIndirect())
        touch(part);
    else if (owner.isIndirect())
        touch(owner);
    return part;
}

QPDFObjectHandle Revision::dictionaryIn(QPDFObjectHandle owner, const std::string &key)
{
    return partIn(owner, key, QPDFObjectHandle::newDictionary());
}

QPDFObjectHandle Revision::arrayIn(QPDFObjectHandle owner, const std::string &key)
{
    return partIn(owner, key, QPDFObjectHandle::newArray());
}

/// Adds objects that qpdf has made meanwhile and that the new ones refer to.
void Revision::findNew()
{
    std::vector<QPDFObjectHandle> waiting;
    for (const QPDFObjGen &number : m_changed) {
        if (m_streams.count(number) == 0)
            waiting.push_back(pdf().getObject(number));
    }
    std::set<QPDFObjGen> seen;
    while (!waiting.empty()) {
        QPDFObjectHandle object = waiting.back();
        waiting.pop_back();
        if (object.isStream())
            object = object.getDict();
        std::vector<QPDFObjectHandle> parts;
        if (object.isArray())
            parts = object.getArrayAsVector();
        else if (object.isDictionary())
            for (const auto &entry : object.getDictAsMap())
                parts.push_back(entry.second);
        for (const QPDFObjectHandle &part : parts) {
            if (!part.isIndirect()) {
                waiting.push_back(part);
                continue;
            }
            const QPDFObjGen number = part.getObjGen();
            const bool isNew = number.getObj() >= m_reader.firstNew && m_streams.count(number) == 0;
            if (isNew && seen.insert(number).second) {
                m_changed.insert(number);
                m_next = std::max(m_next, number.getObj() + 1);
                waiting.push_back(part);
            }
        }
    }
}

std::string Revision::written(QPDFObjGen number)
{
    const std::string begin = number.unparse(' ') + " obj\n", end = "\nendobj\n";
    const auto added = m_streams.find(number);
    if (added != m_streams.end())
        return begin + added->second.dictionary + "\nstream\n" + added->second.data + "\nendstream" + end;
    QPDFObjectHandle object = pdf().getObject(number);
    if (!object.isStream())
        return begin + object.unparseResolved() + end;
    const std::shared_ptr<Buffer> data = object.getRawStreamData();
    QPDFObjectHandle dictionary = object.getDict().shallowCopy();
    dictionary.replaceKey("/Length", QPDFObjectHandle::newInteger(static_cast<long long>(data->getSize())));
    return begin + dictionary.unparse() + "\nstream\n"
        + std::string(reinterpret_cast<const char *>(data->getBuffer()), data->getSize()) + "\nendstream" + end;
}

QPDFObjectHandle Revision::trailer(qint64 previous, int size)
{
    QPDFObjectHandle trailer = pdf().getTrailer().shallowCopy();
    for (const char *key : {"/Type", "/W", "/Index", "/Filter", "/DecodeParms", "/Length"})
        trailer.removeKey(key);
    trailer.replaceKey("/Prev", QPDFObjectHandle::newInteger(previous));
    trailer.replaceKey("/Size", QPDFObjectHandle::newInteger(size));
    QPDFObjectHandle id = trailer.getKey("/ID");
    const bool hasId = id.isArray() && id.getArrayNItems() == 2 && id.getArrayItem(0).isString();
    QPDFObjectHandle both = QPDFObjectHandle::newArray();
    const QPDFObjectHandle changing = QPDFObjectHandle::newString(randomBytes(16));
    both.appendItem(hasId ? id.getArrayItem(0) : changing);
    both.appendItem(changing);
    trailer.replaceKey("/ID", both);
    return trailer;
}

std::string Revision::appended(const Source &source, qint64 end)
{
    findNew();
    std::string bytes = source.read(end - 1, 1) == "\n" ? "" : "\n";
    ObjectPlaces places;
    for (const QPDFObjGen &number : m_changed) {
        places[number] = end + static_cast<qint64>(bytes.size());
        bytes += written(number);
    }
    const qint64 place = end + static_cast<qint64>(bytes.size());
    if (m_reader.last.isStream)
        return bytes + crossReferenceStream(places, trailer(m_reader.last.place, m_next + 1), place);
    return bytes + crossReferenceTable(places, trailer(m_reader.last.place, m_next), place);
}

void Revision::writeAnew(Source &target, const std::function<void(int)> &progress)
{
    ToSource pipeline(target);
    QPDFWriter writer(pdf());
    writer.registerProgressReporter(std::make_shared<QPDFWriter::FunctionProgressReporter>([&](int hundredths) {
        try {
            progress(hundredths);
        } catch (...) {
            pipeline.failure = std::current_exception();
            throw;
        }
    }));
    writer.setOutputPipeline(&pipeline);
    writer.setDecodeLevel(qpdf_dl_none);
    writer.setCompressStreams(false);
    writer.write();
    if (pipeline.failure)
        std::rethrow_exception(pipeline.failure);
}

} // namespace documents
