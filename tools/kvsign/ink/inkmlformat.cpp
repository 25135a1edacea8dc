#include "inkmlformat.h"

#include "../failure.h"
#include "../unwritable.h"
#include "inkmlchannels.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <limits>
#include <optional>

namespace {

constexpr char kNamespace[] = "http://www.w3.org/2003/InkML";

class InkmlSource : public PointSource
{
public:
    InkmlSource(QIODevice &device, const QString &name)
        : m_xml(&device)
        , m_name(name)
    {
    }

    bool next(POINTDATA &point) override
    {
        if (m_closing) {
            m_closing = false;
            point = m_last;
            point.bStrokeEnd = true;
            return true;
        }
        while (!takePoint(point)) {
            if (!openTrace())
                return false;
        }
        return true;
    }

private:
    Failure broken(const QString &what) const { return failed(QString("%1:%2: %3").arg(m_name).arg(m_line).arg(what)); }

    /// Goes to the next trace with points; false at the document's end.
    bool openTrace()
    {
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            m_line = m_xml.lineNumber();
            if (token == QXmlStreamReader::StartElement)
                takeElement();
            if (m_trace.has_value())
                return true;
        }
        if (m_xml.hasError())
            throw failed(QString("%1:%2:%3: %4")
                             .arg(m_name)
                             .arg(m_xml.lineNumber())
                             .arg(m_xml.columnNumber())
                             .arg(m_xml.errorString()));
        return false;
    }

    void takeElement()
    {
        const QStringRef element = m_xml.name();
        if (!m_sawRoot && (element != "ink" || m_xml.namespaceUri() != kNamespace))
            throw broken(QString("the root is \"%1\", not InkML's \"ink\"").arg(element.toString()));
        m_sawRoot = true;
        if (element == "traceFormat")
            m_channels.clear();
        else if (element == "channel")
            takeChannel();
        else if (element == "trace")
            m_trace.emplace(takeText(), checkedChannels());
    }

    void takeChannel()
    {
        const QStringRef name = m_xml.attributes().value("name");
        const InkmlChannel *found = nullptr;
        for (const InkmlChannel &channel : kInkmlChannels) {
            if (name == channel.name)
                found = &channel;
        }
        m_channels.push_back(found);
    }

    QString takeText()
    {
        const QString text = m_xml.readElementText();
        if (m_xml.hasError())
            throw failed(QString("%1:%2:%3: %4")
                             .arg(m_name)
                             .arg(m_xml.lineNumber())
                             .arg(m_xml.columnNumber())
                             .arg(m_xml.errorString()));
        return text;
    }

    bool has(const InkmlChannel &channel) const
    {
        return std::find(m_channels.begin(), m_channels.end(), &channel) != m_channels.end();
    }

    const std::vector<const InkmlChannel *> &checkedChannels()
    {
        for (const InkmlChannel &channel : kInkmlChannels) {
            if (channel.isRequired && !has(channel))
                throw broken(QString("the trace format has no channel %1").arg(channel.name));
            if (channel.field == Field::StrokeEnd)
                m_tellsEnds = has(channel);
            if (channel.field == Field::Time)
                m_tellsTimes = has(channel);
        }
        return m_channels;
    }

    bool takePoint(POINTDATA &point)
    {
        if (!m_trace.has_value())
            return false;
        point = {};
        bool taken = false;
        try {
            taken = m_trace->next(point);
        } catch (const QString &why) {
            throw broken("in the trace that begins there, " + why);
        }
        if (taken && !m_tellsTimes)
            point.pointTime = static_cast<time_t>(point.ulTickCount / 1000);
        if (taken) {
            m_last = point;
            return true;
        }
        m_closing = !m_tellsEnds && m_trace->points() > 0;
        m_trace.reset();
        if (!m_closing)
            return false;
        return next(point);
    }

    QXmlStreamReader m_xml;
    QString m_name;
    qint64 m_line = 1;
    bool m_sawRoot = false;
    std::vector<const InkmlChannel *> m_channels;
    bool m_tellsEnds = false;
    bool m_tellsTimes = false;
    std::optional<InkmlTrace> m_trace;
    POINTDATA m_last = {};
    bool m_closing = false;
};

class InkmlSink : public PointSink
{
public:
    explicit InkmlSink(QIODevice &device)
        : m_device(device)
        , m_xml(&device)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(2);
    }

    void put(const POINTDATA &point) override
    {
        if (!m_begun)
            begin(point);
        if (!m_inTrace) {
            m_xml.writeStartElement("trace");
            m_xml.writeAttribute("contextRef", "#pad");
        }
        QByteArray text = m_inTrace ? ", " : "";
        m_inTrace = true;
        for (const InkmlChannel &channel : kInkmlChannels) {
            if (channel.field != Field::X)
                text += ' ';
            if (channel.field == Field::StrokeEnd)
                text += point.bStrokeEnd ? 'F' : 'T';
            else
                appendField(text, point, channel.field);
        }
        m_xml.writeCharacters(QString::fromLatin1(text));
        if (point.bStrokeEnd)
            endTrace();
    }

    void finish() override
    {
        if (m_inTrace)
            endTrace();
        m_xml.writeEndDocument();
        if (m_xml.hasError())
            throw unwritable(m_device);
    }

private:
    void begin(const POINTDATA &first)
    {
        m_begun = true;
        m_xml.writeStartDocument();
        m_xml.writeStartElement("ink");
        m_xml.writeDefaultNamespace(kNamespace);
        m_xml.writeStartElement("definitions");
        const bool hasZero = writeZero(first);
        m_xml.writeStartElement("context");
        m_xml.writeAttribute("xml:id", "pad");
        m_xml.writeStartElement("traceFormat");
        for (const InkmlChannel &channel : kInkmlChannels) {
            m_xml.writeEmptyElement("channel");
            m_xml.writeAttribute("name", channel.name);
            m_xml.writeAttribute("type", channel.type);
            if (channel.units != nullptr)
                m_xml.writeAttribute("units", channel.units);
            if (channel.field == Field::Tick && hasZero)
                m_xml.writeAttribute("respectTo", "#tick0");
        }
        m_xml.writeEndElement();
        m_xml.writeEndElement();
        m_xml.writeEndElement();
    }

    /// When the pad's clock stood at 0, to the second; ticks and times that do not go together have no such moment.
    bool writeZero(const POINTDATA &first)
    {
        constexpr qint64 kMost = std::numeric_limits<qint64>::max() / 4000;
        const bool isSane = first.pointTime >= 0 && first.pointTime < kMost
            && first.ulTickCount <= static_cast<quint64>(first.pointTime) * 1000;
        if (!isSane)
            return false;
        m_xml.writeEmptyElement("timestamp");
        m_xml.writeAttribute("xml:id", "tick0");
        m_xml.writeAttribute("time", QString::number(first.pointTime * 1000 - static_cast<qint64>(first.ulTickCount)));
        return true;
    }

    void endTrace()
    {
        m_xml.writeEndElement();
        m_inTrace = false;
    }

    QIODevice &m_device;
    QXmlStreamWriter m_xml;
    bool m_begun = false;
    bool m_inTrace = false;
};

} // namespace

std::unique_ptr<PointSource> readInkml(QIODevice &device, const QString &name)
{
    return std::make_unique<InkmlSource>(device, name);
}

std::unique_ptr<PointSink> writeInkml(QIODevice &device)
{
    return std::make_unique<InkmlSink>(device);
}
