#include "csvformat.h"

#include "bufferedwriter.h"
#include "filledpoints.h"
#include "pointfields.h"
#include "textlines.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int kLongestLine = 4096;

/// Begins a first line such as "sep=;", with which spreadsheets name the separator.
constexpr char kSeparatorLine[] = "sep=";

struct Cell
{
    QByteArray text;
    bool isQuoted = false;
};

/// Splits a line into cells, quoted or not. Inside quotation marks two of them stand for one.
std::vector<Cell> cellsOf(const QByteArray &line, char separator)
{
    std::vector<Cell> cells(1);
    bool isInside = false;
    for (int i = 0; i < line.size(); ++i) {
        const char c = line.at(i);
        if (c == '"' && isInside && i + 1 < line.size() && line.at(i + 1) == '"') {
            cells.back().text += c;
            ++i;
        } else if (c == '"') {
            isInside = !isInside;
            cells.back().isQuoted = true;
        } else if (c == separator && !isInside) {
            cells.emplace_back();
        } else {
            cells.back().text += c;
        }
    }
    for (Cell &cell : cells)
        cell.text = cell.text.trimmed();
    return cells;
}

bool isEmpty(const Cell &cell)
{
    return cell.text.isEmpty();
}

/// The letters and digits in lower case, so that "Tick (ms)" and "tick_ms" compare equal.
QByteArray plain(const QByteArray &name)
{
    QByteArray letters;
    for (const char c : name.toLower()) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            letters += c;
    }
    return letters;
}

class CsvSource : public PointSource
{
public:
    CsvSource(QIODevice &device, const QString &name)
        : m_lines(device)
        , m_name(name)
    {
        QByteArray line;
        if (!readLine(line))
            return;
        if (line.toLower().startsWith(kSeparatorLine) || line.toLower().startsWith(QByteArray("\"") + kSeparatorLine))
            takeSeparator(line);
        else
            m_separator = separatorOf(line);
        takeTitles(line);
    }

    bool next(POINTDATA &point) override
    {
        point = {};
        if (!takeLine(point))
            return m_filled.close(point);
        m_filled.fill(point);
        return true;
    }

private:
    Failure broken(const QString &what) const
    {
        return failed(QString("%1:%2: %3").arg(m_name).arg(m_lines.number()).arg(what));
    }

    /// Reads the next line that is not empty.
    bool readLine(QByteArray &line)
    {
        do {
            if (!m_lines.next(line, kLongestLine))
                return false;
            if (m_lines.isTooLong())
                throw broken("the line is too long for a point");
        } while (line.trimmed().isEmpty());
        return true;
    }

    /// Reads up to the line of names.
    void takeSeparator(QByteArray &line)
    {
        const int place = line.indexOf('=') + 1;
        m_separator = line.size() > place ? line.at(place) : ',';
        if (!readLine(line))
            line.clear();
    }

    static char separatorOf(const QByteArray &titles)
    {
        for (const char separator : {'\t', ';'}) {
            if (titles.contains(separator))
                return separator;
        }
        return ',';
    }

    void takeTitles(const QByteArray &line)
    {
        for (const Cell &cell : cellsOf(line, m_separator))
            m_columns.push_back(isEmpty(cell) ? nullptr : &rowOf(cell.text));
        while (!m_columns.empty() && m_columns.back() == nullptr)
            m_columns.pop_back();
        for (const FieldRow &row : kFields) {
            const auto times = std::count(m_columns.begin(), m_columns.end(), &row);
            const bool isRequired = row.field == Field::X || row.field == Field::Y;
            if (times > 1 || (times == 0 && isRequired))
                throw broken(QString("the column %1 is %2").arg(row.column, times == 0 ? "missing" : "there twice"));
            if (times == 0)
                m_filled.lacks(row.field);
            if (row.field == Field::StrokeEnd)
                m_filled.setCloses(times == 0);
        }
    }

    /// The field whose name begins with these letters: people shorten the names in spreadsheets.
    const FieldRow &rowOf(const QByteArray &title) const
    {
        const QByteArray letters = plain(title);
        for (const FieldRow &row : kFields) {
            if (!letters.isEmpty() && plain(row.column).startsWith(letters))
                return row;
        }
        throw broken(QString("there is no column \"%1\"").arg(QString::fromUtf8(title.left(40))));
    }

    bool takeLine(POINTDATA &point)
    {
        QByteArray line;
        std::vector<Cell> cells;
        do {
            if (!readLine(line))
                return false;
            cells = cellsOf(line, m_separator);
        } while (std::all_of(cells.begin(), cells.end(), isEmpty));
        while (cells.size() > m_columns.size() && isEmpty(cells.back()))
            cells.pop_back();
        if (cells.size() != m_columns.size())
            throw broken(QString("%1 cells below %2 names").arg(cells.size()).arg(m_columns.size()));
        for (size_t i = 0; i < m_columns.size(); ++i)
            takeCell(point, m_columns[i], cells[i]);
        return true;
    }

    void takeCell(POINTDATA &point, const FieldRow *row, Cell &cell) const
    {
        if (row == nullptr)
            return;
        if (m_separator != ',' || cell.isQuoted)
            cell.text.replace(',', '.'); // the decimal comma
        const QString why = takeField(point, row->field, cell.text);
        if (!why.isEmpty())
            throw broken(QString("%1 %2").arg(row->column, why));
    }

    TextLines m_lines;
    QString m_name;
    char m_separator = ',';
    std::vector<const FieldRow *> m_columns; ///< null for a column without a name
    FilledPoints m_filled;
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
