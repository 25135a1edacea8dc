#include "report.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

bool isNumber(const QString &text)
{
    bool number = false;
    text.toDouble(&number);
    return number || text == "-";
}

QString line(const QStringList &cells, const std::vector<int> &widths, const std::vector<bool> &toTheRight)
{
    QStringList padded;
    for (size_t column = 0; column < widths.size(); ++column) {
        const QString cell = cells.value(static_cast<int>(column));
        padded += toTheRight[column] ? cell.rightJustified(widths[column]) : cell.leftJustified(widths[column]);
    }
    QString text = padded.join("  ");
    while (text.endsWith(' '))
        text.chop(1);
    return text;
}

void print(const QString &text)
{
    std::puts(text.toLocal8Bit().constData());
}

} // namespace

ProgressLine::ProgressLine()
    : m_inPlace(isatty(STDOUT_FILENO) == 1)
{
}

void ProgressLine::show(const QString &text)
{
    if (!m_inPlace)
        return;
    std::printf("\r%s\033[K", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

void ProgressLine::finish(const QString &text)
{
    show(QString());
    print(text);
    std::fflush(stdout);
}

QString captureText(const CaptureState &state)
{
    return QString("%1 points  %2 strokes  %3 s")
        .arg(state.points, 5)
        .arg(state.strokes, 3)
        .arg(state.seconds, 5, 'f', 1);
}

void printTable(const QStringList &titles, const std::vector<QStringList> &rows)
{
    std::vector<int> widths;
    std::vector<bool> toTheRight;
    for (int column = 0; column < titles.size(); ++column) {
        int width = titles[column].size();
        for (const QStringList &row : rows)
            width = std::max(width, row.value(column).size());
        widths.push_back(width);
        toTheRight.push_back(
            std::all_of(rows.begin(), rows.end(), [&](const QStringList &row) { return isNumber(row.value(column)); }));
    }
    print(line(titles, widths, toTheRight));
    QStringList rules;
    for (const int width : widths)
        rules += QString(width, '-');
    print(rules.join("  "));
    for (const QStringList &row : rows)
        print(line(row, widths, toTheRight));
}
