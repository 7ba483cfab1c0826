#include "regionstatistics.h"

#include <algorithm>

SampleStatistics statisticsIn(const QVector<double> &xs, const QVector<double> &ys, bool sorted,
                              const ValueWindow &window)
{
    SampleStatistics result;
    auto x = xs.cbegin();
    auto end = x + std::min(xs.size(), ys.size());
    if (sorted) {
        x = std::lower_bound(x, end, window.left);
        end = std::upper_bound(x, end, window.right);
    }
    // The sum of large values would be infinite as a double.
    long double sum = 0.0L;
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -minimum;
    for (auto y = ys.cbegin() + (x - xs.cbegin()); x != end; ++x, ++y) {
        const bool inside = *x >= window.left && *x <= window.right && *y >= window.low && *y <= window.high;
        if (!inside)
            continue;
        ++result.count;
        sum += *y;
        minimum = std::min(minimum, *y);
        maximum = std::max(maximum, *y);
    }
    if (result.count > 0) {
        result.mean = static_cast<double>(sum / result.count);
        result.minimum = minimum;
        result.maximum = maximum;
    }
    return result;
}
