#include "documentinside.h"

#include "pageplace.h"
#include "problem.h"

#include <algorithm>

namespace documents {

namespace {

std::unique_ptr<Document::Inside> opened(Source source, const QByteArray &password)
{
    const QString name = source.name();
    auto inside = std::make_unique<Document::Inside>(std::move(source), password);
    inside->reader = openReader(inside->source, inside->source.size(), password);
    try {
        inside->pages = pagesOf(inside->reader->pdf);
        inside->fields = fieldsOf(inside->reader->pdf);
    } catch (...) {
        rethrowAsProblem(name);
    }
    if (inside->pages.empty())
        throw Problem{Problem::Kind::File, QString("%1: there are no pages in it").arg(name)};
    return inside;
}

} // namespace

void Document::Inside::findAnnotations()
{
    m_isFound = true;
    for (size_t i = 0; i < pages.size(); ++i) {
        QPDFObjectHandle annotations = QPDFObjectHandle(pages[i].page).getKey("/Annots");
        if (!annotations.isArray())
            continue;
        for (const QPDFObjectHandle &annotation : annotations.getArrayAsVector()) {
            if (annotation.isIndirect())
                m_pageOf.emplace(annotation.getObjGen(), static_cast<int>(i));
        }
    }
    for (size_t i = 0; i < pages.size(); ++i)
        m_pageOf[pages[i].page.getObjGen()] = static_cast<int>(i);
}

int Document::Inside::pageOf(const QPDFObjectHandle &widget)
{
    if (!m_isFound)
        findAnnotations();
    for (const QPDFObjGen &number : {QPDFObjectHandle(widget).getKey("/P").getObjGen(), widget.getObjGen()}) {
        const auto found = m_pageOf.find(number);
        if (found != m_pageOf.end())
            return found->second;
    }
    return -1;
}

Document::Document(const QString &path, const QByteArray &password)
    : m_inside(opened(Source(path), password))
{
}

Document::Document(const Content &content, const QByteArray &password)
    : m_inside(opened(Source::ofBytes(content.name, content.bytes), password))
{
}

Document::~Document() = default;

int Document::pageCount() const
{
    return static_cast<int>(m_inside->pages.size());
}

PageFacts Document::page(int index) const
{
    const PagePlace place(m_inside->pages.at(static_cast<size_t>(index)));
    return {place.size(), place.rotation()};
}

std::vector<SignatureFieldFacts> Document::signatureFields() const
{
    std::vector<SignatureFieldFacts> facts;
    for (const FormField &field : m_inside->fields) {
        if (!field.isSignature())
            continue;
        SignatureFieldFacts row{QString::fromStdString(field.name), -1, {}, !field.signature().isNull()};
        QPDFObjectHandle widget = field.widgets.front();
        const QRectF place = widget.isDictionary() ? rectangleOf(widget.getKey("/Rect")) : QRectF();
        if (widget.isIndirect() && place.width() > 0 && place.height() > 0)
            row.page = m_inside->pageOf(widget);
        if (row.page >= 0)
            row.place = PagePlace(m_inside->pages[static_cast<size_t>(row.page)]).shown(place);
        facts.push_back(row);
    }
    return facts;
}

bool Document::isSigned() const
{
    return std::any_of(m_inside->fields.begin(), m_inside->fields.end(),
        [](const FormField &field) { return !field.signature().isNull(); });
}

QString Document::rewriteReason() const
{
    switch (m_inside->reader->rewrite) {
    case Rewrite::Encrypted:
        return "it is encrypted";
    case Rewrite::Damaged:
        return "it is damaged";
    case Rewrite::Hybrid:
        return "its cross-references are in two forms at once";
    case Rewrite::None:
        break;
    }
    return {};
}

} // namespace documents
