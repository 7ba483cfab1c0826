#ifndef TICKLABELS_P_H
#define TICKLABELS_P_H

#include <QtCore/QByteArray>

namespace ZrTicks {

/// The formats of labels; the numbers are those of the public interface.
enum class LabelFormat { FloatingPoint = 0, Exponential = 1, Compact = 2, DateTime = 3 };

/// How the numbers of an axis are written.
struct NumberStyle
{
    LabelFormat format = LabelFormat::FloatingPoint;
    bool exponentMultipleOfThree = false;
    bool equalExponent = false; ///< the values are already divided by a common exponent
    int mantissaDecimals = 0;   ///< decimals of the mantissa in front of an exponent
};

/// floor(log10 |value|), or with `multipleOfThree` the multiple of three at or below it; 0 for 0.
[[nodiscard]] int decimalExponent(double value, bool multipleOfThree);

/// Takes the sign from a plain number that shows nothing but zeros.
void dropMinusOfZero(QByteArray &text);

/// `value` in fixed-point notation: as many decimals as asked for (at most 350), none for a negative number,
/// a point whatever the locale, and no minus sign in front of zeros. Exact ties go to the even digit.
[[nodiscard]] QByteArray fixedNumber(double value, int decimals);

/// The label of one tick: plain with `decimals` decimals, or a mantissa followed by "e", a sign and at least
/// two digits. A value that is not finite has an empty label.
[[nodiscard]] QByteArray numberLabel(const NumberStyle &style, double shown, int decimals);

} // namespace ZrTicks

#endif // TICKLABELS_P_H
