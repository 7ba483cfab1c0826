#include "ticklabels_p.h"

#include "powersoften_p.h"

#include <algorithm>
#include <cmath>

namespace ZrTicks {

namespace {

// The compact format writes exponents up to this one plainly.
constexpr int largestPlainExponent = 5;

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

QByteArray fixedNumber(double value, int decimals)
{
    QByteArray text = QByteArray::number(value, 'f', std::max(decimals, 0));
    const auto isZero = [](char c) { return c == '-' || c == '0' || c == '.'; };
    if (text.startsWith('-') && std::all_of(text.cbegin(), text.cend(), isZero))
        text.remove(0, 1);
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
