#include "csvformat.h"

#include "bufferedwriter.h"
#include "pointfields.h"

#include <QList>

#include <algorithm>
#include <vector>

namespace {

constexpr int kLongestLine = 4096;

QByteArray withoutMarks(QByteArray cell)
{
    cell = cell.trimmed();
    if (cell.size() >= 2 && cell.startsWith('"') && cell.endsWith('"'))
        cell = cell.mid(1, cell.size() - 2).trimmed();
    return cell;
}

class CsvSource : public PointSource
{
public:
    CsvSource(QIODevice &device, const QString &name)
        : m_device(device)
        , m_name(name)
    {
        QByteArray line;
        if (readLine(line))
            takeTitles(line);
    }

    bool next(POINTDATA &point) override
    {
        QByteArray line;
        if (!readLine(line))
            return false;
        const QList<QByteArray> cells = line.split(m_separator);
        if (cells.size() != static_cast<int>(m_columns.size()))
            throw broken(QString("%1 cells below %2 names").arg(cells.size()).arg(m_columns.size()));
        for (size_t i = 0; i < m_columns.size(); ++i) {
            const FieldRow &row = *m_columns[i];
            const QString why = takeField(point, row.field, withoutMarks(cells[static_cast<int>(i)]));
            if (!why.isEmpty())
                throw broken(QString("%1 %2").arg(row.column, why));
        }
        return true;
    }

private:
    Failure broken(const QString &what) const { return failed(QString("%1:%2: %3").arg(m_name).arg(m_line).arg(what)); }

    /// The next line with something in it.
    bool readLine(QByteArray &line)
    {
        do {
            line = m_device.readLine(kLongestLine);
            if (line.isEmpty())
                return false;
            ++m_line;
            if (!line.endsWith('\n') && line.size() >= kLongestLine - 1)
                throw broken("the line is too long for a point");
            if (m_line == 1 && line.startsWith("\xef\xbb\xbf"))
                line.remove(0, 3);
        } while (line.trimmed().isEmpty());
        return true;
    }

    void takeTitles(const QByteArray &line)
    {
        for (const char separator : {';', '\t'}) {
            if (line.contains(separator))
                m_separator = separator;
        }
        for (const QByteArray &cell : line.split(m_separator))
            m_columns.push_back(&rowOf(withoutMarks(cell)));
        for (const FieldRow &row : kFields) {
            const auto times = std::count(m_columns.begin(), m_columns.end(), &row);
            if (times != 1)
                throw broken(QString("the column %1 is %2").arg(row.column, times == 0 ? "missing" : "there twice"));
        }
    }

    const FieldRow &rowOf(const QByteArray &title) const
    {
        for (const FieldRow &row : kFields) {
            if (title == row.column)
                return row;
        }
        throw broken(QString("there is no column \"%1\"").arg(QString::fromUtf8(title.left(40))));
    }

    QIODevice &m_device;
    QString m_name;
    qint64 m_line = 0;
    char m_separator = ',';
    std::vector<const FieldRow *> m_columns;
};

class CsvSink : public PointSink
{
public:
    explicit CsvSink(QIODevice &device)
        : m_text(device)
    {
        for (const FieldRow &row : kFields)
            addCell(row.field, [&] { m_text.buffer() += row.column; });
    }

    void put(const POINTDATA &point) override
    {
        for (const FieldRow &row : kFields)
            addCell(row.field, [&] { appendField(m_text.buffer(), point, row.field); });
        m_text.spill();
    }

    void finish() override { m_text.flush(); }

private:
    template <class Append>
    void addCell(Field field, Append append)
    {
        append();
        m_text.buffer() += field == Field::Time ? '\n' : ',';
    }

    BufferedWriter m_text;
};

} // namespace

std::unique_ptr<PointSource> readCsv(QIODevice &device, const QString &name)
{
    return std::make_unique<CsvSource>(device, name);
}

std::unique_ptr<PointSink> writeCsv(QIODevice &device)
{
    return std::make_unique<CsvSink>(device);
}
