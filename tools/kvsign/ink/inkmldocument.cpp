#include "inkmldocument.h"

#include "inkmlnamespace.h"

#include <QDateTime>

#include <algorithm>

namespace {

constexpr size_t kDeepestElement = 200;
constexpr size_t kMostChannels = 256;
constexpr int kMostStored = 100000;
constexpr qint64 kMostViewed =
    qint64{1} << 26; // bytes; without a limit, views of views could make a small file endless

/// Elements that have nothing to do with points.
constexpr const char *kPassedOver[] = {"annotation", "annotationXML", "brush", "canvas", "canvasTransform", "mapping"};

bool isPassedOver(const QStringRef &name)
{
    return std::any_of(
        std::begin(kPassedOver), std::end(kPassedOver), [&](const char *element) { return name == element; });
}

} // namespace

InkmlDocument::InkmlDocument(QIODevice &device, const QString &name)
    : m_limited(device)
    , m_xml(&m_limited)
    , m_name(name)
{
}

Failure InkmlDocument::broken(qint64 line, const QString &what) const
{
    return failed(QString("%1:%2: %3").arg(m_name).arg(line).arg(what));
}

bool InkmlDocument::next(InkmlTraceText &trace)
{
    while (m_found.empty() && !m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = readNext();
        if (token == QXmlStreamReader::StartDocument)
            checkEncoding();
        else if (token == QXmlStreamReader::StartElement)
            begin();
        else if (token == QXmlStreamReader::EndElement)
            end();
    }
    if (m_xml.hasError())
        failAsReader();
    if (m_found.empty())
        return false;
    trace = m_found.back();
    m_found.pop_back();
    return true;
}

void InkmlDocument::checkEncoding() const
{
    const QString encoding = m_xml.documentEncoding().toString();
    if (!m_limited.knows(encoding.toLatin1()))
        throw broken(QString("InkML is not read in the encoding %1; save it as UTF-8").arg(encoding));
}

void InkmlDocument::failAsReader() const
{
    if (!m_limited.trouble().isEmpty())
        throw broken(m_limited.trouble());
    throw failed(
        QString("%1:%2:%3: %4").arg(m_name).arg(m_xml.lineNumber()).arg(m_xml.columnNumber()).arg(m_xml.errorString()));
}

/// Ends the document at the first element of too many attributes also where an entity or a document type hid them.
QXmlStreamReader::TokenType InkmlDocument::readNext()
{
    const QXmlStreamReader::TokenType token = m_xml.readNext();
    if (token == QXmlStreamReader::StartElement
        && m_xml.attributes().size() + m_xml.namespaceDeclarations().size() > XmlLimits::kMostAttributes)
        throw broken(QString("an element has more than %1 attributes").arg(XmlLimits::kMostAttributes));
    return token;
}

void InkmlDocument::checkDepth(size_t outer) const
{
    if (outer >= kDeepestElement)
        throw broken(QString("elements are nested more than %1 deep").arg(kDeepestElement));
}

/// Passes over an element that has begun. For each element inside, Qt's reader goes through all namespaces that are
/// open, so that their depth has to be limited there too.
void InkmlDocument::skip()
{
    for (size_t inside = 1; inside > 0 && !m_xml.atEnd();) {
        const QXmlStreamReader::TokenType token = readNext();
        if (token == QXmlStreamReader::StartElement)
            checkDepth(m_open.size() + inside++);
        else if (token == QXmlStreamReader::EndElement)
            --inside;
    }
}

/// The text of an element that has begun, without that of the elements inside.
QString InkmlDocument::readText()
{
    QString text;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = readNext();
        if (token == QXmlStreamReader::EndElement)
            break;
        if (token == QXmlStreamReader::StartElement)
            skip();
        else if (token == QXmlStreamReader::Characters || token == QXmlStreamReader::EntityReference)
            text += m_xml.text();
    }
    return text;
}

void InkmlDocument::begin()
{
    if (m_open.empty())
        checkRoot();
    checkDepth(m_open.size());
    if (m_xml.namespaceUri() != m_namespace || isPassedOver(m_xml.name())) {
        skip();
        return;
    }
    Open element;
    element.name = m_xml.name().toString();
    element.id = m_xml.attributes().value("xml:id").toString();
    element.contextRef = reference("contextRef");
    element.isDefinition = element.name == "definitions" || (!m_open.empty() && m_open.back().isDefinition);
    if (element.name == "context")
        beginContext(element);
    else if (element.name == "inkSource")
        element.source = std::make_shared<Source>();
    else if (element.name == "traceFormat")
        beginTraceFormat(element);
    else if (element.name == "channel")
        beginChannel(isInside("intermittentChannels"));
    else if (element.name == "sampleRate" || element.name == "channelProperty")
        beginProperty();
    else if (element.name == "timestamp")
        beginTimestamp();
    else if (element.name == "traceView")
        beginView();
    else if (element.name == "trace") {
        beginTrace(element);
        return; // readNext() has already read its end
    }
    m_open.push_back(element);
}

void InkmlDocument::end()
{
    const Open element = m_open.back();
    m_open.pop_back();
    if (element.name == "context")
        endContext(element);
    if (element.name == "inkSource") {
        if (!element.id.isEmpty())
            m_sources[element.id] = element.source;
        m_lastSource = element.source;
        if (Open *const context = enclosing("context"))
            context->context->source = element.source;
    }
}

void InkmlDocument::checkRoot()
{
    const QStringRef space = m_xml.namespaceUri();
    if (m_xml.name() != "ink" || (space != kInkmlNamespace && !space.isEmpty()))
        throw broken(QString("the root is \"%1\", not InkML's \"ink\"").arg(m_xml.name().toString()));
    m_namespace = space.toString();
    m_limited.endHead();
}

InkmlDocument::Open *InkmlDocument::enclosing(const char *name)
{
    const auto found =
        std::find_if(m_open.rbegin(), m_open.rend(), [&](const Open &element) { return element.name == name; });
    return found == m_open.rend() ? nullptr : &*found;
}

QString InkmlDocument::attribute(const char *name) const
{
    return m_xml.attributes().value(name).toString();
}

/// The id that an attribute points to; empty for none.
QString InkmlDocument::reference(const char *name) const
{
    return attribute(name).section('#', -1);
}

std::optional<double> InkmlDocument::number(const char *name) const
{
    const QByteArray text = attribute(name).trimmed().toUtf8();
    bool isTooLarge = false;
    const std::optional<double> number = decimalNumber(text, isTooLarge);
    if (!text.isEmpty() && !number.has_value())
        throw broken(QString("%1 is \"%2\", not a number").arg(name, QString::fromUtf8(text.left(40))));
    return number;
}

template <class Value>
std::shared_ptr<Value> InkmlDocument::referred(
    const QHash<QString, std::shared_ptr<Value>> &known, const char *name) const
{
    const QString id = reference(name);
    if (id.isEmpty())
        return {};
    const std::shared_ptr<Value> value = known.value(id);
    if (value == nullptr)
        throw broken(QString("%1 names \"%2\", which is not there").arg(name, id));
    return value;
}

void InkmlDocument::beginContext(Open &element)
{
    element.context = std::make_shared<Context>();
    if (!element.contextRef.isEmpty() && element.contextRef != "DefaultContext")
        *element.context = *referred(m_contexts, "contextRef");
    if (const auto format = referred(m_formats, "traceFormatRef"))
        element.context->format = format;
    if (const auto source = referred(m_sources, "inkSourceRef"))
        element.context->source = source;
    if (!reference("timestampRef").isEmpty())
        element.context->timestamp = reference("timestampRef");
}

void InkmlDocument::endContext(const Open &element)
{
    if (!element.id.isEmpty())
        m_contexts[element.id] = element.context;
    if (!element.isDefinition)
        m_current = element.context;
}

void InkmlDocument::beginTraceFormat(Open &element)
{
    element.format = std::make_shared<InkmlFormat>();
    if (!element.id.isEmpty())
        m_formats[element.id] = element.format;
    m_last = element.format;
    if (Open *const source = enclosing("inkSource"))
        source->source->format = element.format;
    else if (Open *const context = enclosing("context"))
        context->context->format = element.format;
}

void InkmlDocument::beginChannel(bool isIntermittent)
{
    const Open *const format = enclosing("traceFormat");
    if (format == nullptr)
        return;
    std::vector<InkmlColumn> &columns = format->format->columns;
    if (columns.size() == kMostChannels)
        throw broken(QString("a trace format has more than %1 channels").arg(kMostChannels));
    try {
        columns.push_back(inkmlColumn(m_xml.attributes()));
    } catch (const QString &why) {
        throw broken(why);
    }
    const std::optional<Field> field = columns.back().field;
    const auto isSame = [&](const InkmlColumn &column) { return field.has_value() && column.field == field; };
    if (std::count_if(columns.begin(), columns.end(), isSame) > 1)
        throw broken(QString("the trace format has the channel %1 twice").arg(columns.back().name));
    if (!isIntermittent)
        format->format->regular = columns.size();
}

/// Reads a source's sampling rate and resolutions.
void InkmlDocument::beginProperty()
{
    const Open *const source = enclosing("inkSource");
    const double value = number("value").value_or(0);
    if (source == nullptr || value <= 0)
        return;
    if (m_xml.name() == "sampleRate")
        source->source->step = 1000 / value;
    else if (attribute("name") == "resolution" && attribute("channel") == "X")
        source->source->resolutionX = value;
    else if (attribute("name") == "resolution" && attribute("channel") == "Y")
        source->source->resolutionY = value;
}

void InkmlDocument::beginTimestamp()
{
    const QString id = attribute("xml:id");
    const QDateTime moment = QDateTime::fromString(attribute("timeString"), Qt::ISODateWithMs);
    std::optional<double> time = number("time");
    if (!time.has_value() && moment.isValid())
        time = static_cast<double>(moment.toMSecsSinceEpoch());
    if (!time.has_value() && m_timestamps.contains(reference("timestampRef")))
        time = m_timestamps.value(reference("timestampRef")) + number("timeOffset").value_or(0);
    if (time.has_value())
        m_timestamps[id] = *time;
    if (Open *const context = enclosing("context"))
        context->context->timestamp = id;
}

std::shared_ptr<InkmlDocument::Context> InkmlDocument::contextOfTrace(const Open &element)
{
    QString id = element.contextRef;
    for (auto outer = m_open.rbegin(); outer != m_open.rend() && id.isEmpty(); ++outer)
        id = outer->contextRef;
    if (id.isEmpty() || (id == "DefaultContext" && !m_contexts.contains(id)))
        return m_current;
    if (!m_contexts.contains(id))
        throw broken(QString("contextRef names \"%1\", which is not there").arg(id));
    return m_contexts.value(id);
}

void InkmlDocument::describe(
    InkmlTraceText &trace, const std::shared_ptr<Context> &context, const QXmlStreamAttributes &attributes)
{
    const std::shared_ptr<Source> source =
        context != nullptr && context->source != nullptr ? context->source : m_lastSource;
    trace.format = context != nullptr ? context->format : nullptr;
    if (trace.format == nullptr && source != nullptr)
        trace.format = source->format;
    if (trace.format == nullptr)
        trace.format = m_last;
    if (trace.format == nullptr || trace.format->columns.empty())
        trace.format = m_plain;
    if (!trace.format->has(Field::X) || !trace.format->has(Field::Y))
        throw broken(
            trace.line, QString("the trace format has no channel %1").arg(trace.format->has(Field::X) ? "Y" : "X"));
    if (source != nullptr) {
        trace.step = source->step;
        if (source->resolutionX > 0 && source->resolutionY > 0)
            trace.aspect = source->resolutionX / source->resolutionY;
    }
    QString timestamp = context != nullptr ? context->timestamp : QString();
    for (const InkmlColumn &column : trace.format->columns) {
        if (column.field == Field::Tick && !column.respectTo.isEmpty())
            timestamp = column.respectTo;
    }
    if (m_timestamps.contains(timestamp))
        trace.zero = m_timestamps.value(timestamp);
    const QString continuation = attributes.value("continuation").toString();
    trace.continues = continuation == "middle" || continuation == "end";
}

void InkmlDocument::beginTrace(const Open &element)
{
    const QXmlStreamAttributes attributes = m_xml.attributes();
    InkmlTraceText trace;
    trace.line = m_xml.lineNumber();
    trace.begin = number("timeOffset");
    trace.duration = number("duration");
    const std::shared_ptr<Context> context = contextOfTrace(element);
    trace.text = readText().toUtf8();
    if (m_xml.hasError() || attributes.value("type") == "penUp")
        return;
    describe(trace, context, attributes);
    if (!element.isDefinition) {
        m_found.push_back(trace);
        return;
    }
    if (!element.id.isEmpty())
        store(element.id, trace);
    for (const Open &outer : m_open) {
        if (outer.name == "traceGroup" && !outer.id.isEmpty())
            store(outer.id, trace);
    }
}

void InkmlDocument::store(const QString &id, const InkmlTraceText &trace)
{
    if (++m_storedCount > kMostStored)
        throw broken(QString("there are more than %1 traces in definitions and groups of them").arg(kMostStored));
    m_stored[id].push_back(trace);
}

/// A view shows traces from <definitions>. All other traces are read at their own places.
void InkmlDocument::beginView()
{
    if (m_open.back().isDefinition)
        return;
    std::vector<InkmlTraceText> traces = m_stored.value(reference("traceDataRef"));
    if (traces.size() == 1) {
        traces[0].from = static_cast<qint64>(number("from").value_or(1));
        traces[0].to = static_cast<qint64>(number("to").value_or(-1));
    }
    for (auto trace = traces.rbegin(); trace != traces.rend(); ++trace) {
        m_viewed += trace->text.size() + 1;
        if (m_viewed > kMostViewed)
            throw broken("the views show too much of the traces");
        m_found.push_back(*trace);
    }
}
