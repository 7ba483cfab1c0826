#ifndef VIEWER_AXISNUMBERS_H
#define VIEWER_AXISNUMBERS_H

#include <optional>

/// How a number axis writes its range.
struct AxisNumbers
{
    int decimals = 0;     ///< of its labels
    int unitExponent = 0; ///< labels count in this power of ten, a multiple of three
};

/// Decimals that tell the ticks between \a low and \a high apart and are not more than that, if an axis has
/// at most \a maxTicks ticks and \a maxIntervals intervals between them. Between 0 and 15.
int decimalsForTicks(double low, double high, int maxTicks, double maxIntervals);

/// The same, but numbers from a million on or below a thousandth are counted in a power of ten that leaves
/// one to three digits before the point. Not where the range is so small that the power would cost more
/// digits.
AxisNumbers axisNumbers(double low, double high, int maxTicks, double maxIntervals);

/// Decimals with which the ends of the range can be typed to about a thousandth of it. None if these were
/// more than 15, or an end had more than 15 digits before the point.
std::optional<int> decimalsForTyping(double low, double high);

#endif // VIEWER_AXISNUMBERS_H
