#include "pagecontent.h"

#include "pageplace.h"
#include "streambytes.h"

#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFTokenizer.hh>

#include <algorithm>

namespace documents {

namespace {

constexpr qint64 kMostContent = 128 << 20; // bytes; a few compressed bytes can expand to far more

/// What a page's content leaves open at its end, and how many graphics states it closes that it has not opened.
class OpenEnds
{
public:
    explicit OpenEnds(PageBytes content)
        : m_isCut(content.isBroken)
    {
        Buffer bytes(
            reinterpret_cast<unsigned char *>(content.bytes.data()), static_cast<size_t>(content.bytes.size()));
        const std::shared_ptr<InputSource> input = std::make_shared<BufferInputSource>("content", &bytes, false);
        QPDFTokenizer tokenizer;
        tokenizer.allowEOF();
        for (;;) {
            const QPDFTokenizer::Token token = tokenizer.readToken(input, "content", true);
            if (token.getType() == QPDFTokenizer::tt_eof)
                return;
            if (token.getType() == QPDFTokenizer::tt_bad)
                m_isCut = m_isCut || token.getErrorMessage().find("EOF") != std::string::npos;
            else if (token.getType() == QPDFTokenizer::tt_word)
                takeWord(token.getValue(), tokenizer, input);
            else
                takeBracket(token.getType());
        }
    }

    int needed() const { return 1 - m_least; }
    int leftOpen() const { return m_open; }
    int marks() const { return m_marks; }
    bool isInText() const { return m_isInText; }

    /// Whether it cannot be decoded, or ends within something: nobody would see what follows.
    bool isBrokenOff() const { return m_isCut || m_brackets > 0; }

private:
    void takeWord(const std::string &word, QPDFTokenizer &tokenizer, const std::shared_ptr<InputSource> &input)
    {
        if (word == "ID")
            skipPicture(tokenizer, input);
        else if (word == "q")
            ++m_open;
        else if (word == "Q")
            m_least = std::min(m_least, --m_open);
        else if (word == "BMC" || word == "BDC")
            ++m_marks;
        else if (word == "EMC")
            m_marks = std::max(0, m_marks - 1);
        else if (word == "BT" || word == "ET")
            m_isInText = word == "BT";
    }

    void takeBracket(QPDFTokenizer::token_type_e type)
    {
        if (type == QPDFTokenizer::tt_array_open || type == QPDFTokenizer::tt_dict_open)
            ++m_brackets;
        else if (type == QPDFTokenizer::tt_array_close || type == QPDFTokenizer::tt_dict_close)
            m_brackets = std::max(0, m_brackets - 1);
    }

    /// Skips the bytes of an inline picture, which are no operators.
    void skipPicture(QPDFTokenizer &tokenizer, const std::shared_ptr<InputSource> &input)
    {
        char blank = 0;
        input->read(&blank, 1);
        tokenizer.expectInlineImage(input);
        tokenizer.readToken(input, "content", true);
        const QPDFTokenizer::Token end = tokenizer.readToken(input, "content", true);
        m_isCut = m_isCut || end.getType() != QPDFTokenizer::tt_word || end.getValue() != "EI";
    }

    int m_open = 0;
    int m_least = 0;
    int m_marks = 0;
    int m_brackets = 0;
    bool m_isInText = false;
    bool m_isCut;
};

OpenEnds endsOf(QPDFObjectHandle page)
{
    return OpenEnds(contentBytes(page, kMostContent));
}

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

bool endsBrokenOff(const TreePage &page)
{
    return endsOf(page.page).isBrokenOff();
}

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
    const OpenEnds ends = endsOf(m_page.page);
    const int before = std::min(ends.needed(), kMostStates);
    const int after = std::clamp(ends.leftOpen() + before, 1, kMostStates);
    QPDFObjectHandle all = QPDFObjectHandle::newArray();
    all.appendItem(m_revision.addStream(QPDFObjectHandle::newDictionary(), repeated("q\n", before)));
    for (const QPDFObjectHandle &stream : streams) {
        if (QPDFObjectHandle(stream).isStream()) // some programs show nothing behind anything else
            all.appendItem(stream);
    }
    const std::string text = (ends.isInText() ? "\nET\n" : "\n")
        + repeated("EMC\n", std::min(ends.marks(), kMostStates)) + repeated("Q\n", after) + "q\n" + operators + "Q\n";
    all.appendItem(m_revision.addStream(QPDFObjectHandle::newDictionary(), text));
    m_page.page.replaceKey("/Contents", all);
}

} // namespace documents
