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
    // A mean that runs along: the sum of large values could be infinite.
    double mean = 0.0;
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -minimum;
    for (auto y = ys.cbegin() + (x - xs.cbegin()); x != end; ++x, ++y) {
        const bool inside = *x >= window.left && *x <= window.right && *y >= window.low && *y <= window.high;
        if (!inside)
            continue;
        ++result.count;
        mean += *y / result.count - mean / result.count;
        minimum = std::min(minimum, *y);
        maximum = std::max(maximum, *y);
    }
    if (result.count > 0) {
        result.mean = mean;
        result.minimum = minimum;
        result.maximum = maximum;
    }
    return result;
}
