#include "svgblocks.h"

#include <QBuffer>
#include <QRectF>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// Numbers that appear nowhere else in Qt's text of a small drawing: width, both ends, radius of the dot. Where they
// appear, the numbers of a real line go. Each is exact in binary and has six digits, so Qt writes it in full.
constexpr double kMarks[] = {12345.5, 23451.5, 34512.5, 45123.5, 51234.5, 6172.75};
constexpr const char *kMarkTexts[] = {"12345.5", "23451.5", "34512.5", "45123.5", "51234.5", "6172.75"};
constexpr int kMarkCount = 6;

int kindOf(const svglines::Line &line)
{
    return (line.from == line.to ? 1 : 0) + (line.width == 0 ? 2 : 0);
}

QByteArray textOf(const svglines::Drawing &like, std::vector<svglines::Line> lines)
{
    QByteArray text;
    QBuffer buffer(&text);
    buffer.open(QIODevice::WriteOnly);
    const size_t count = lines.size();
    svglines::writePlainly(buffer, {like.size, like.dpi, like.colour, {}, svglines::linesOf(std::move(lines)), count});
    return text;
}

// Qt writes numbers with six significant digits. It rounds an exact half away from zero, std::to_chars to the even
// digit, so possible halves go to QByteArray::number(). A double halfway between two such texts is a multiple of
// 1/1024; whole numbers below a million need no rounding.
bool mayBeHalfWay(double value)
{
    const double scaled = value * 1024;
    return scaled == std::floor(scaled) && !(value == std::floor(value) && std::abs(value) < 1e6);
}

constexpr int kLongest = 32; // more than the characters of any number

char *putNumber(char *to, double value)
{
    value += 0.0; // turns -0.0 into 0.0
    if (!mayBeHalfWay(value))
        return std::to_chars(to, to + kLongest, value, std::chars_format::general, 6).ptr;
    const QByteArray digits = QByteArray::number(value, 'g', 6);
    return std::copy(digits.begin(), digits.end(), to);
}

} // namespace

svglines::Line SvgBlock::marked(bool dot, bool hasWidth)
{
    const QPointF from(kMarks[1], kMarks[2]);
    return {from, dot ? from : QPointF(kMarks[3], kMarks[4]), hasWidth ? kMarks[0] : 0};
}

bool SvgBlock::take(const QByteArray &without, const QByteArray &with, int end)
{
    const int start = without.size() - end;
    const int length = with.size() - without.size();
    if (length <= 0 || with.left(start) != without.left(start) || with.right(end) != without.right(end))
        return false;
    const QByteArray block = with.mid(start, length);
    int done = 0;
    while (true) {
        int next = block.size();
        int number = -1;
        for (int mark = 0; mark < kMarkCount; ++mark) {
            const int at = block.indexOf(kMarkTexts[mark], done);
            if (at >= 0 && at < next) {
                next = at;
                number = mark;
            }
        }
        if (number < 0)
            break;
        m_places.push_back({block.mid(done, next - done), number});
        done = next + static_cast<int>(qstrlen(kMarkTexts[number]));
    }
    m_rest = block.mid(done);
    m_longest = block.size() + kLongest * static_cast<int>(m_places.size());
    return m_places.size() >= 2;
}

void SvgBlock::append(QByteArray &text, const svglines::Line &line) const
{
    const double numbers[kMarkCount] = {
        line.width, line.from.x(), line.from.y(), line.to.x(), line.to.y(), std::abs(line.width) / 2};
    const int start = text.size();
    text.resize(start + m_longest);
    char *to = text.data() + start;
    for (const Place &place : m_places) {
        to = std::copy(place.before.begin(), place.before.end(), to);
        to = putNumber(to, numbers[place.number]);
    }
    to = std::copy(m_rest.begin(), m_rest.end(), to);
    text.resize(static_cast<int>(to - text.constData()));
}

bool SvgBlocks::take(const svglines::Drawing &drawing)
{
    const svglines::Line first{{1, 2}, {3, 4}, 5};
    const QByteArray one = textOf(drawing, {first});
    const int lastTag = one.lastIndexOf("/>\n");
    if (lastTag < 0)
        return false;
    m_end = one.mid(lastTag + 3);
    for (const bool dot : {false, true}) {
        for (const bool hasWidth : {false, true}) {
            const svglines::Line line = SvgBlock::marked(dot, hasWidth);
            if (!m_blocks[kindOf(line)].take(one, textOf(drawing, {first, line}), m_end.size()))
                return false;
        }
    }
    return true;
}

void SvgBlocks::append(QByteArray &text, const svglines::Line &line) const
{
    svglines::Line placed = line;
    if (line.from == line.to) {
        // For a dot Qt draws an ellipse in a rectangle of the pen's width, and writes the rectangle's centre. Going
        // through the rectangle repeats Qt's rounding.
        const double size = line.width == 0 ? 1 : line.width;
        placed.from = QRectF(line.from.x() - size / 2, line.from.y() - size / 2, size, size).normalized().center();
    }
    m_blocks[kindOf(line)].append(text, placed);
}
