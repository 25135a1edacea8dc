#include "pagecontent.h"

#include "pageplace.h"
#include "streambytes.h"

#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFTokenizer.hh>

#include <algorithm>

namespace documents {

namespace {

constexpr qint64 kMostContent = 128 << 20; // bytes; a few compressed bytes can expand to far more

/// How many graphics states a page's content leaves open, and how many it closes that it has not opened.
class StateCounter
{
public:
    explicit StateCounter(QByteArray content)
    {
        Buffer bytes(reinterpret_cast<unsigned char *>(content.data()), static_cast<size_t>(content.size()));
        const std::shared_ptr<InputSource> input = std::make_shared<BufferInputSource>("content", &bytes, false);
        QPDFTokenizer tokenizer;
        tokenizer.allowEOF();
        for (;;) {
            const QPDFTokenizer::Token token = tokenizer.readToken(input, "content", true);
            if (token.getType() == QPDFTokenizer::tt_eof)
                return;
            const std::string word = token.getType() == QPDFTokenizer::tt_word ? token.getValue() : std::string();
            if (word == "ID")
                skipPicture(tokenizer, input);
            else if (word == "q")
                ++m_open;
            else if (word == "Q")
                m_least = std::min(m_least, --m_open);
        }
    }

    int needed() const { return 1 - m_least; }
    int leftOpen() const { return m_open; }

private:
    /// Skips the bytes of an inline picture, which are no operators.
    static void skipPicture(QPDFTokenizer &tokenizer, const std::shared_ptr<InputSource> &input)
    {
        char blank = 0;
        input->read(&blank, 1);
        tokenizer.expectInlineImage(input);
        tokenizer.readToken(input, "content", true);
    }

    int m_open = 0;
    int m_least = 0;
};

/// A page with more of them than this is broken beyond repair.
constexpr int kMostStates = 1000;

std::string repeated(const char *text, int times)
{
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

QPDFObjectHandle copyOrEmpty(QPDFObjectHandle dictionary)
{
    return dictionary.isDictionary() ? dictionary.shallowCopy() : QPDFObjectHandle::newDictionary();
}

} // namespace

std::string matrixOperator(const QTransform &matrix)
{
    std::string text;
    for (const double number : {matrix.m11(), matrix.m12(), matrix.m21(), matrix.m22(), matrix.dx(), matrix.dy()})
        text += numberText(number, 6) + " ";
    return text + "cm\n";
}

// Several pages may share resources. Give this page its own dictionary, which refers to the same objects.
PageContent::PageContent(Revision &revision, const TreePage &page)
    : m_revision(revision)
    , m_page(page)
{
    m_revision.touch(m_page.page);
    const QPDFObjectHandle own = m_page.page.getKey("/Resources");
    QPDFObjectHandle resources = copyOrEmpty(QPDFObjectHandle(own).isDictionary() ? own : m_page.resources);
    m_objects = copyOrEmpty(resources.getKey("/XObject"));
    resources.replaceKey("/XObject", m_objects);
    m_page.page.replaceKey("/Resources", resources);
}

std::string PageContent::nameFor(const QPDFObjectHandle &object)
{
    std::string name;
    do
        name = "/KvInk" + std::to_string(++m_names);
    while (m_objects.hasKey(name));
    m_objects.replaceKey(name, object);
    return name;
}

void PageContent::append(const std::string &operators)
{
    QPDFObjectHandle contents = m_page.page.getKey("/Contents");
    std::vector<QPDFObjectHandle> streams;
    if (contents.isArray())
        streams = contents.getArrayAsVector();
    else if (contents.isStream())
        streams.push_back(contents);
    if (!streams.empty() && m_revision.isAdded(streams.back())) { // the page's own content is closed already
        contents.appendItem(m_revision.addStream(QPDFObjectHandle::newDictionary(), "q\n" + operators + "Q\n"));
        return;
    }
    const StateCounter states(streams.empty() ? QByteArray() : contentBytes(m_page.page, kMostContent));
    const int before = std::min(states.needed(), kMostStates);
    const int after = std::clamp(states.leftOpen() + before, 1, kMostStates);
    QPDFObjectHandle all = QPDFObjectHandle::newArray();
    all.appendItem(m_revision.addStream(QPDFObjectHandle::newDictionary(), repeated("q\n", before)));
    for (const QPDFObjectHandle &stream : streams)
        all.appendItem(stream);
    const std::string text = "\n" + repeated("Q\n", after) + "q\n" + operators + "Q\n";
    all.appendItem(m_revision.addStream(QPDFObjectHandle::newDictionary(), text));
    m_page.page.replaceKey("/Contents", all);
}

} // namespace documents
