#ifndef POWERSOFTEN_P_H
#define POWERSOFTEN_P_H

namespace ZrTicks {

/// 10 raised to `exponent`, as the nearest double: 0 below -323, infinite above 308.
[[nodiscard]] double powerOfTen(int exponent);

/// `value` times 10 raised to `exponent`. Multiplies or divides by a whole power of ten, never by an inexact
/// 0.1 or 0.001, so that a decimal number stays the nearest double of itself.
[[nodiscard]] double scaledByPowerOfTen(double value, int exponent);

/// `value` rounded half away from zero to `decimals` decimals; -2 rounds to whole hundreds.
[[nodiscard]] double roundedToDecimals(double value, int decimals);

/// The fewest decimals that write `value` in full: 3 for 0.005, 0 for 7, -2 for 100. At most 17.
[[nodiscard]] int decimalsNeeded(double value);

} // namespace ZrTicks

#endif // POWERSOFTEN_P_H
