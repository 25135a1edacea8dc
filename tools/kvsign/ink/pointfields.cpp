#include "pointfields.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace {

template <class Number>
void append(QByteArray &text, Number number)
{
    char digits[24];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, static_cast<int>(end.ptr - digits));
}

/// Numbers that are too small and too large for a double are reported alike; the exponent's sign tells them apart.
bool isTiny(const QByteArray &text)
{
    return text.contains("e-") || text.contains("E-");
}

QString notANumber(const QByteArray &text)
{
    return QString("is \"%1\", not a number").arg(QString::fromUtf8(text.left(40)));
}

template <class Number>
QString outOfRange(const QByteArray &text)
{
    return QString("is %1, a record holds %2 to %3")
        .arg(QString::fromUtf8(text.left(40)))
        .arg(std::numeric_limits<Number>::min())
        .arg(std::numeric_limits<Number>::max());
}

template <class Number>
bool holds(long double number)
{
    // Compare with the power of two above the largest 64-bit number: that one is exact as a long double everywhere, the
    // largest number itself is not.
    constexpr Number kHalf = std::numeric_limits<Number>::max() / 2 + 1;
    constexpr long double kBehind = 2.0L * static_cast<long double>(kHalf);
    return number >= static_cast<long double>(std::numeric_limits<Number>::min()) && number < kBehind;
}

template <class Number>
QString takeRounded(const QByteArray &text, long double decimal, Number &number)
{
    const long double rounded = std::round(decimal);
    if (!holds<Number>(rounded))
        return outOfRange<Number>(text);
    number = static_cast<Number>(rounded);
    return {};
}

/// Keeps every digit of whole numbers and rounds others.
template <class Number>
QString take(const QByteArray &text, Number &number)
{
    const char *end = text.constData() + text.size();
    const std::from_chars_result result = std::from_chars(text.constData(), end, number);
    if (result.ec == std::errc() && result.ptr == end)
        return {};
    bool isTooLarge = false;
    const std::optional<double> decimal = decimalNumber(text, isTooLarge);
    if (isTooLarge)
        return outOfRange<Number>(text);
    if (!decimal.has_value())
        return notANumber(text);
    return takeRounded(text, *decimal, number);
}

QString takeFlag(const QByteArray &text, bool &flag)
{
    const QByteArray word = text.toLower();
    bool isTooLarge = false;
    const double number = decimalNumber(word, isTooLarge).value_or(-1);
    flag = number == 1 || word == "true";
    if (flag || number == 0 || word == "false")
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

std::optional<double> decimalNumber(const QByteArray &text, bool &isTooLarge)
{
    const QByteArray unsignedText = text.startsWith('+') ? text.mid(1) : text;
    const char *const begin = unsignedText.constData(), *const end = begin + unsignedText.size();
    const char first = begin[0] == '-' ? begin[1] : begin[0];
    double number = 0;
    const std::from_chars_result result = std::from_chars(begin, end, number);
    const bool isNumber = result.ptr == end && result.ec != std::errc::invalid_argument
        && ((first >= '0' && first <= '9') || first == '.'); // neither "inf" nor "nan"
    isTooLarge = isNumber && result.ec == std::errc::result_out_of_range && !isTiny(unsignedText);
    if (!isNumber || isTooLarge)
        return {};
    return result.ec == std::errc() ? number : 0;
}

QString setField(POINTDATA &point, Field field, long double value)
{
    const QByteArray shown = QByteArray::number(static_cast<double>(value), 'g', 12);
    switch (field) {
    case Field::X:
        return takeRounded(shown, value, point.nX);
    case Field::Y:
        return takeRounded(shown, value, point.nY);
    case Field::Pressure:
        return takeRounded(shown, value, point.nPressureValue);
    case Field::StrokeEnd:
        point.bStrokeEnd = value != 0;
        return {};
    case Field::Tick:
        return takeRounded(shown, value, point.ulTickCount);
    case Field::Time:
        return takeRounded(shown, value, point.pointTime);
    }
    return {};
}
