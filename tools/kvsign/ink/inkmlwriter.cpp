// Writes W3C InkML: a trace for each stroke.
#include "../unwritable.h"
#include "inkmlchannels.h"
#include "inkmlformat.h"
#include "inkmlnamespace.h"

#include <QXmlStreamWriter>

#include <limits>

namespace {

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
        m_xml.writeDefaultNamespace(kInkmlNamespace);
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

    /// Writes when the tick count was 0, to the second. False when the point's tick and time contradict each other.
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

std::unique_ptr<PointSink> writeInkml(QIODevice &device)
{
    return std::make_unique<InkmlSink>(device);
}
