// SVG with a line for each segment. Written as the points come; QSvgGenerator would keep the whole drawing in memory.
#include "pictures.h"

#include "../unwritable.h"
#include "segments.h"

#include <QIODevice>
#include <QXmlStreamWriter>

namespace {

QString rounded(double number)
{
    return QString::number(number, 'f', 2);
}

class SvgSink : public PointSink
{
public:
    SvgSink(QIODevice &device, const PictureSettings &settings)
        : m_device(device)
        , m_settings(settings)
        , m_segments(m_settings)
        , m_xml(&device)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(1);
        m_xml.writeStartDocument();
        m_xml.writeStartElement("svg");
        m_xml.writeDefaultNamespace("http://www.w3.org/2000/svg");
        const QSize size = m_settings.size();
        const double millimetres = 25.4 / m_settings.dpi;
        m_xml.writeAttribute("width", QString("%1mm").arg(size.width() * millimetres, 0, 'g', 8));
        m_xml.writeAttribute("height", QString("%1mm").arg(size.height() * millimetres, 0, 'g', 8));
        m_xml.writeAttribute("viewBox", QString("0 0 %1 %2").arg(size.width()).arg(size.height()));
        if (m_settings.background.isValid())
            writeBackground();
    }

    void put(const POINTDATA &point) override
    {
        const std::optional<Segment> segment = m_segments.take(point);
        if (segment.has_value())
            write(*segment);
        if (point.bStrokeEnd)
            endStroke();
    }

    void finish() override
    {
        m_xml.writeEndDocument();
        if (m_xml.hasError())
            throw unwritable(m_device);
    }

private:
    void writeBackground()
    {
        m_xml.writeEmptyElement("rect");
        m_xml.writeAttribute("width", "100%");
        m_xml.writeAttribute("height", "100%");
        m_xml.writeAttribute("fill", m_settings.background.name());
    }

    void write(const Segment &segment)
    {
        if (!m_inStroke) {
            m_xml.writeStartElement("g");
            m_xml.writeAttribute("stroke", m_settings.colour.name());
            m_xml.writeAttribute("stroke-linecap", "round");
        }
        m_inStroke = true;
        m_xml.writeEmptyElement("line");
        m_xml.writeAttribute("x1", rounded(segment.line.x1()));
        m_xml.writeAttribute("y1", rounded(segment.line.y1()));
        m_xml.writeAttribute("x2", rounded(segment.line.x2()));
        m_xml.writeAttribute("y2", rounded(segment.line.y2()));
        m_xml.writeAttribute("stroke-width", rounded(std::max(segment.width, 0.0)));
    }

    void endStroke()
    {
        if (m_inStroke)
            m_xml.writeEndElement();
        m_inStroke = false;
    }

    QIODevice &m_device;
    PictureSettings m_settings;
    Segments m_segments;
    QXmlStreamWriter m_xml;
    bool m_inStroke = false;
};

} // namespace

std::unique_ptr<PointSink> drawSvg(QIODevice &device, const PictureSettings &settings)
{
    return std::make_unique<SvgSink>(device, settings);
}
