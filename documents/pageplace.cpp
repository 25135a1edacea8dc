#include "pageplace.h"

#include <algorithm>
#include <cmath>

namespace documents {

namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr double kLargest = 1e7; // points; a larger page counts as one without a size

/// PDF viewers show a page without a size as US Letter.
const QRectF kLetter(0, 0, 612, 792);

bool isSane(const QRectF &box)
{
    return box.width() > 0.01 && box.height() > 0.01 && std::abs(box.left()) < kLargest
        && std::abs(box.right()) < kLargest && std::abs(box.top()) < kLargest && std::abs(box.bottom()) < kLargest;
}

int quarters(QPDFObjectHandle rotate)
{
    if (!rotate.isInteger() || rotate.getIntValue() % 90 != 0)
        return 0;
    return static_cast<int>((rotate.getIntValue() / 90 % 4 + 4) % 4);
}

} // namespace

QRectF rectangleOf(QPDFObjectHandle array)
{
    if (!array.isArray() || array.getArrayNItems() != 4)
        return {};
    double numbers[4] = {};
    for (int i = 0; i < 4; ++i) {
        if (!array.getArrayItem(i).isNumber())
            return {};
        numbers[i] = array.getArrayItem(i).getNumericValue();
        if (!std::isfinite(numbers[i]))
            return {};
    }
    return QRectF(QPointF(numbers[0], numbers[1]), QPointF(numbers[2], numbers[3])).normalized();
}

std::string numberText(double number, int decimals)
{
    if (!std::isfinite(number))
        number = 0;
    std::string text = QString::number(number, 'f', decimals).toStdString();
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

QPDFObjectHandle arrayOf(const QRectF &rectangle)
{
    QPDFObjectHandle array = QPDFObjectHandle::newArray();
    for (const double number : {rectangle.left(), rectangle.top(), rectangle.right(), rectangle.bottom()})
        array.appendItem(QPDFObjectHandle::newReal(numberText(number)));
    return array;
}

PagePlace::PagePlace(TreePage page)
    : m_rotation(90 * quarters(page.rotate))
{
    const QRectF media = rectangleOf(page.mediaBox);
    m_box = isSane(media) ? media : kLetter;
    const QRectF crop = m_box & rectangleOf(page.cropBox);
    if (isSane(crop))
        m_box = crop;
    QPDFObjectHandle unit = page.page.getKey("/UserUnit");
    if (unit.isNumber() && unit.getNumericValue() > 0 && unit.getNumericValue() < kLargest)
        m_pointsPerUnit = unit.getNumericValue();
}

QSizeF PagePlace::size() const
{
    const QSizeF size = m_box.size() * (m_pointsPerUnit / kPointsPerMillimetre);
    return m_rotation % 180 == 0 ? size : size.transposed();
}

QTransform PagePlace::toPage() const
{
    const double unit = kPointsPerMillimetre / m_pointsPerUnit;
    // A QRectF grows downwards and a page upwards: its bottom is the page's top.
    switch (m_rotation) {
    case 90:
        return {0, unit, unit, 0, m_box.left(), m_box.top()};
    case 180:
        return {-unit, 0, 0, unit, m_box.right(), m_box.top()};
    case 270:
        return {0, -unit, -unit, 0, m_box.right(), m_box.bottom()};
    default:
        return {unit, 0, 0, -unit, m_box.left(), m_box.bottom()};
    }
}

} // namespace documents
