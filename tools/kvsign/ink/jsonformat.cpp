#include "jsonformat.h"

#include "bufferedwriter.h"
#include "jsontokens.h"
#include "pointfields.h"

#include <algorithm>
#include <vector>

namespace {

constexpr char kFormat[] = "ink-points";
constexpr int kVersion = 1;

class JsonSource : public PointSource
{
public:
    JsonSource(QIODevice &device, const QString &name)
        : m_tokens(device, name)
    {
        for (const FieldRow &row : kFields)
            m_order.push_back(&row);
        m_tokens.expect('{');
        openPoints();
    }

    bool next(POINTDATA &point) override
    {
        if (m_tokens.is(']')) {
            close();
            return false;
        }
        if (m_points++ > 0)
            m_tokens.expect(',');
        m_tokens.expect('[');
        for (size_t i = 0; i < m_order.size(); ++i) {
            if (i > 0)
                m_tokens.expect(',');
            takeValue(point, *m_order[i]);
        }
        if (!m_tokens.is(']'))
            throw m_tokens.broken(QString("point %1 has more than %2 values").arg(m_points).arg(m_order.size()));
        m_tokens.next();
        return true;
    }

private:
    /// Reads the object's members up to the first point.
    void openPoints()
    {
        for (bool first = true; !m_tokens.is('}'); first = false) {
            if (!first)
                m_tokens.expect(',');
            const QByteArray key = takeKey();
            if (key == "points") {
                m_tokens.expect('[');
                return;
            }
            takeMember(key);
        }
        throw m_tokens.broken("the object has no \"points\"");
    }

    /// Reads what follows the points.
    void close()
    {
        m_tokens.next();
        while (!m_tokens.is('}')) {
            m_tokens.expect(',');
            const QByteArray key = takeKey();
            if (key == "points" || key == "fields")
                throw m_tokens.broken(QString("\"%1\" comes after the points").arg(QString(key)));
            takeMember(key);
        }
        m_tokens.next();
        if (m_tokens.kind() != JsonTokens::Kind::End)
            throw m_tokens.broken("something follows the object");
    }

    QByteArray takeKey()
    {
        if (m_tokens.kind() != JsonTokens::Kind::String)
            throw m_tokens.broken("a member's name is expected");
        const QByteArray key = m_tokens.text();
        m_tokens.next();
        m_tokens.expect(':');
        return key;
    }

    void takeMember(const QByteArray &key)
    {
        if (key == "fields") {
            takeFields();
            return;
        }
        const bool isWrong = (key == "format" && m_tokens.text() != kFormat)
            || (key == "version" && m_tokens.text() != QByteArray::number(kVersion));
        if (isWrong)
            throw m_tokens.broken(QString("the %1 is \"%2\", which cannot be read")
                                      .arg(QString(key), QString::fromUtf8(m_tokens.text().left(40))));
        m_tokens.skipValue();
    }

    void takeFields()
    {
        m_order.clear();
        m_tokens.expect('[');
        while (!m_tokens.is(']')) {
            if (!m_order.empty())
                m_tokens.expect(',');
            m_order.push_back(&rowOf(m_tokens.text()));
            m_tokens.next();
        }
        for (const FieldRow &row : kFields) {
            const auto times = std::count(m_order.begin(), m_order.end(), &row);
            if (times != 1)
                throw m_tokens.broken(
                    QString("the field %1 is %2").arg(row.key, times == 0 ? "missing" : "there twice"));
        }
        m_tokens.next();
    }

    const FieldRow &rowOf(const QByteArray &key) const
    {
        for (const FieldRow &row : kFields) {
            if (key == row.key)
                return row;
        }
        throw m_tokens.broken(QString("there is no field \"%1\"").arg(QString::fromUtf8(key.left(40))));
    }

    void takeValue(POINTDATA &point, const FieldRow &row)
    {
        if (m_tokens.kind() != JsonTokens::Kind::Word)
            throw m_tokens.broken(QString("point %1: the %2 is expected").arg(m_points).arg(row.key));
        const QString why = takeField(point, row.field, m_tokens.text());
        if (!why.isEmpty())
            throw m_tokens.broken(QString("point %1: %2 %3").arg(m_points).arg(row.key, why));
        m_tokens.next();
    }

    JsonTokens m_tokens;
    std::vector<const FieldRow *> m_order;
    qint64 m_points = 0;
};

class JsonSink : public PointSink
{
public:
    explicit JsonSink(QIODevice &device)
        : m_text(device)
    {
        QByteArray names;
        for (const FieldRow &row : kFields)
            names += QByteArray(names.isEmpty() ? "" : ", ") + '"' + row.key + '"';
        m_text.buffer() += QByteArray("{\n  \"format\": \"") + kFormat + "\",\n  \"version\": "
            + QByteArray::number(kVersion) + ",\n  \"fields\": [" + names + "],\n  \"points\": [";
    }

    void put(const POINTDATA &point) override
    {
        QByteArray &text = m_text.buffer();
        text += m_first ? "\n    [" : ",\n    [";
        m_first = false;
        for (const FieldRow &row : kFields) {
            if (row.field != Field::X)
                text += ", ";
            if (row.field == Field::StrokeEnd)
                text += point.bStrokeEnd ? "true" : "false";
            else
                appendField(text, point, row.field);
        }
        text += ']';
        m_text.spill();
    }

    void finish() override
    {
        m_text.buffer() += "\n  ]\n}\n";
        m_text.flush();
    }

private:
    BufferedWriter m_text;
    bool m_first = true;
};

} // namespace

std::unique_ptr<PointSource> readJson(QIODevice &device, const QString &name)
{
    return std::make_unique<JsonSource>(device, name);
}

std::unique_ptr<PointSink> writeJson(QIODevice &device)
{
    return std::make_unique<JsonSink>(device);
}
