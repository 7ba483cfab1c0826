#include "ticklabels_p.h"

#include "powersoften_p.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace ZrTicks {

namespace {

// The compact format writes exponents up to this one plainly.
constexpr int largestPlainExponent = 5;

// As many as the smallest number has before its first digit that is not 0, and some of its digits.
constexpr int mostFixedDecimals = 350;
// Sign, the digits of the largest number, the point, the decimals.
constexpr int longestFixedNumber = 1 + 309 + 1 + mostFixedDecimals;

bool isPlain(const NumberStyle &style, int exponent)
{
    switch (style.format) {
    case LabelFormat::Exponential:
        return style.equalExponent;
    case LabelFormat::Compact:
        return std::abs(exponent) <= largestPlainExponent;
    case LabelFormat::FloatingPoint:
    case LabelFormat::DateTime:
        break;
    }
    return true;
}

} // namespace

int decimalExponent(double value, bool multipleOfThree)
{
    if (value == 0.0)
        return 0;
    const double exponent = std::log10(std::fabs(value));
    return multipleOfThree ? int(std::floor(exponent / 3.0)) * 3 : int(std::floor(exponent));
}

void dropMinusOfZero(QByteArray &text)
{
    const auto isZero = [](char c) { return c == '-' || c == '0' || c == '.'; };
    if (text.startsWith('-') && std::all_of(text.cbegin(), text.cend(), isZero))
        text.remove(0, 1);
}

QByteArray fixedNumber(double value, int decimals)
{
    // As printf does it in the "C" locale: exact ties go to the even digit.
    std::array<char, longestFixedNumber> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, std::clamp(decimals, 0, mostFixedDecimals));
    QByteArray text(buffer.data(), int(end.ptr - buffer.data()));
    dropMinusOfZero(text);
    return text;
}

QByteArray numberLabel(const NumberStyle &style, double shown, int decimals)
{
    if (!std::isfinite(shown))
        return {};
    const int exponent = decimalExponent(shown, style.exponentMultipleOfThree);
    if (isPlain(style, exponent))
        return fixedNumber(shown, decimals);
    QByteArray text = fixedNumber(scaledByPowerOfTen(shown, -exponent), style.mantissaDecimals);
    text += exponent < 0 ? "e-" : "e+";
    text += QByteArray::number(std::abs(exponent)).rightJustified(2, '0');
    return text;
}

} // namespace ZrTicks
