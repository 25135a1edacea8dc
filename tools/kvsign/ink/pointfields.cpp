#include "pointfields.h"

#include <charconv>
#include <limits>

namespace {

template <class Number>
void append(QByteArray &text, Number number)
{
    char digits[24];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, static_cast<int>(end.ptr - digits));
}

template <class Number>
QString take(const QByteArray &text, Number &number)
{
    const char *end = text.constData() + text.size();
    const std::from_chars_result result = std::from_chars(text.constData(), end, number);
    if (result.ec == std::errc() && result.ptr == end)
        return {};
    const QString shown = QString::fromUtf8(text.left(40));
    if (result.ec == std::errc::result_out_of_range && result.ptr == end)
        return QString("is %1, a record holds %2 to %3")
            .arg(shown)
            .arg(std::numeric_limits<Number>::min())
            .arg(std::numeric_limits<Number>::max());
    return QString("is \"%1\", not a whole number").arg(shown);
}

QString takeFlag(const QByteArray &text, bool &flag)
{
    flag = text == "1" || text == "true";
    if (flag || text == "0" || text == "false")
        return {};
    return QString("is \"%1\", not 0 or 1").arg(QString::fromUtf8(text.left(40)));
}

} // namespace

void appendField(QByteArray &text, const POINTDATA &point, Field field)
{
    switch (field) {
    case Field::X:
        return append(text, point.nX);
    case Field::Y:
        return append(text, point.nY);
    case Field::Pressure:
        return append(text, point.nPressureValue);
    case Field::StrokeEnd:
        text.append(point.bStrokeEnd ? '1' : '0');
        return;
    case Field::Tick:
        return append(text, point.ulTickCount);
    case Field::Time:
        return append(text, point.pointTime);
    }
}

QString takeField(POINTDATA &point, Field field, const QByteArray &text)
{
    switch (field) {
    case Field::X:
        return take(text, point.nX);
    case Field::Y:
        return take(text, point.nY);
    case Field::Pressure:
        return take(text, point.nPressureValue);
    case Field::StrokeEnd:
        return takeFlag(text, point.bStrokeEnd);
    case Field::Tick:
        return take(text, point.ulTickCount);
    case Field::Time:
        return take(text, point.pointTime);
    }
    return {};
}
