#include "axisnumbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostDecimals = 15;
constexpr double kTypedParts = 1000.0;
constexpr double kLargestTyped = 1e15;
constexpr double kLargestPlain = 1e6;
constexpr double kSmallestPlain = 1e-3;
constexpr double kSmallestSpan = 1e-5;
// The factor for smaller units would be infinite.
constexpr double kSmallestUnit = 1e-300;

/// Whether an axis takes ticks every \a step: the ends of the range have ticks, too.
bool fits(double low, double high, double step, int maxTicks, double maxIntervals)
{
    const double ticks = std::ceil(high / step) - std::floor(low / step) + 1.0;
    return ticks <= maxTicks && ticks - 1.0 <= maxIntervals;
}

} // namespace

int decimalsForTicks(double low, double high, int maxTicks, double maxIntervals)
{
    const double span = high - low;
    if (!std::isfinite(span) || !(span > 0.0))
        return 0;
    // An axis has no more than a few dozen ticks: the search begins with steps that are too small.
    const int first = static_cast<int>(std::floor(std::log10(span))) - 3;
    for (int exponent = first; exponent < first + 5; ++exponent) {
        for (const double mantissa : {1.0, 2.0, 5.0}) {
            if (fits(low, high, mantissa * std::pow(10.0, exponent), maxTicks, maxIntervals))
                return std::clamp(-exponent, 0, kMostDecimals);
        }
    }
    return std::clamp(-first - 4, 0, kMostDecimals);
}

AxisNumbers axisNumbers(double low, double high, int maxTicks, double maxIntervals)
{
    AxisNumbers numbers;
    const double largest = std::max(std::abs(low), std::abs(high));
    const bool plain = !std::isfinite(largest) || largest < kSmallestUnit
                       || (largest >= kSmallestPlain && largest < kLargestPlain)
                       || !(high - low >= kSmallestSpan * largest);
    if (!plain)
        numbers.unitExponent = static_cast<int>(std::floor(std::log10(largest) / 3.0)) * 3;
    const double factor = std::pow(10.0, -numbers.unitExponent);
    numbers.decimals = decimalsForTicks(low * factor, high * factor, maxTicks, maxIntervals);
    return numbers;
}

std::optional<int> decimalsForTyping(double low, double high)
{
    const double span = high - low;
    if (!std::isfinite(span) || !(span > 0.0))
        return std::nullopt;
    const double decimals = std::ceil(-std::log10(span / kTypedParts));
    if (decimals > kMostDecimals || !(std::max(std::abs(low), std::abs(high)) < kLargestTyped))
        return std::nullopt;
    return static_cast<int>(std::max(decimals, 0.0));
}
