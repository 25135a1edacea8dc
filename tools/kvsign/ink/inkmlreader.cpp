// Reads W3C InkML, also that of other programs: a stroke for each trace of a pen that touches the surface.
#include "../failure.h"
#include "filledpoints.h"
#include "inkmldocument.h"
#include "inkmlfit.h"
#include "inkmlformat.h"
#include "inkmltrace.h"

#include <algorithm>
#include <optional>

namespace {

class InkmlSource : public PointSource
{
public:
    InkmlSource(QIODevice &device, const QString &name)
        : m_fit(device, name)
        , m_document(device, name)
    {
    }

    bool next(POINTDATA &point) override
    {
        for (;;) {
            if (m_points.has_value() && takePoint(point))
                return true;
            m_points.reset();
            if (!m_hasNext && !m_atEnd)
                m_hasNext = m_document.next(m_next);
            m_atEnd = !m_hasNext;
            if ((m_atEnd || !m_next.continues) && m_filled.close(point))
                return true;
            if (m_atEnd)
                return false;
            openTrace();
        }
    }

private:
    void openTrace()
    {
        m_hasNext = false;
        m_trace = m_next;
        m_points.emplace(m_trace.text, *m_trace.format);
        m_filled.forget();
        for (const FieldRow &row : kFields) {
            if (!m_trace.format->has(row.field))
                m_filled.lacks(row.field);
        }
        // Traces of other programs may lack the closing point, where the pen has left the surface.
        m_filled.setCloses(!m_trace.format->isOwn());
        m_filled.setZero(m_trace.zero);
        m_filled.setStep(stepOfTrace());
        if (m_trace.begin.has_value())
            m_filled.setTick(*m_trace.begin);
    }

    double stepOfTrace() const
    {
        const auto points = m_trace.text.count(',') + (m_trace.text.trimmed().endsWith(',') ? 0 : 1);
        if (m_trace.duration.has_value() && points > 1)
            return *m_trace.duration / (points - 1);
        return m_trace.step > 0 ? m_trace.step : static_cast<double>(kUsualStep);
    }

    bool takePoint(POINTDATA &point)
    {
        try {
            while (m_points->next()) {
                const bool isSeen = m_points->points() >= m_trace.from
                    && (m_trace.to < 0 || m_points->points() <= m_trace.to) && isWhere();
                point = {};
                if (isSeen && fill(point))
                    return true;
                m_filled.pass();
            }
        } catch (const QString &why) {
            throw m_document.broken(m_trace.line, "in the trace that begins there, " + why);
        }
        return false;
    }

    /// Whether X and Y of the point are known.
    bool isWhere() const
    {
        const std::vector<InkmlColumn> &columns = m_trace.format->columns;
        for (size_t i = 0; i < columns.size(); ++i) {
            const bool isPlace = columns[i].field == Field::X || columns[i].field == Field::Y;
            if (isPlace && !m_points->values()[i].isKnown)
                return false;
        }
        return true;
    }

    /// False while the pen hovers.
    bool fill(POINTDATA &point)
    {
        const std::vector<InkmlColumn> &columns = m_trace.format->columns;
        for (size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].field.has_value())
                take(point, columns[i], m_points->values()[i]);
        }
        if (point.bStrokeEnd && !m_trace.format->isOwn() && !m_filled.isOpen())
            return false;
        m_filled.fill(point);
        return true;
    }

    void take(POINTDATA &point, const InkmlColumn &column, const InkmlValue &value) const
    {
        if (*column.field == Field::StrokeEnd) { // the channel says the opposite: whether the tip touches
            point.bStrokeEnd = value.isKnown && value.number == 0;
            return;
        }
        if (value.letter != 0)
            throw at(QString("%1 is \"%2\", not a number").arg(column.name, QChar(value.letter)));
        const QString why = setField(point, *column.field, m_fit.of(m_trace, column, value.number));
        if (!why.isEmpty())
            throw at(QString("%1 %2").arg(column.name, why));
    }

    QString at(const QString &what) const { return QString("point %1: %2").arg(m_points->points()).arg(what); }

    const InkmlFit m_fit;
    InkmlDocument m_document;
    InkmlTraceText m_next; ///< already read, while the stroke before it still has to be closed
    bool m_hasNext = false;
    bool m_atEnd = false;
    InkmlTraceText m_trace;
    std::optional<InkmlTrace> m_points;
    FilledPoints m_filled;
};

} // namespace

std::unique_ptr<PointSource> readInkml(QIODevice &device, const QString &name)
{
    return std::make_unique<InkmlSource>(device, name);
}
