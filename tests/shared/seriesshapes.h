#ifndef SERIESSHAPES_H
#define SERIESSHAPES_H

#include <QtCore/QPointF>
#include <QtCore/QVector>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

/// Series of every character that tests and benchmarks of painting need. x runs from 0 to 1, y stays within
/// -1 and 1; the same call gives the same series.
namespace SeriesShapes {

using Points = QVector<QPointF>;

inline Points sampled(int count, const std::function<double(int)> &y)
{
    Points points(count);
    for (int i = 0; i < count; ++i)
        points[i] = QPointF(double(i) / std::max(1, count - 1), y(i));
    return points;
}

inline Points noise(int count)
{
    std::mt19937 random(1);
    return sampled(count, [&](int) { return double(random()) * 2.0 / std::mt19937::max() - 1.0; });
}

inline Points randomWalk(int count)
{
    std::mt19937 random(2);
    double y = 0.0;
    double farthest = 1.0;
    Points points = sampled(count, [&](int) {
        y += double(random()) * 2.0 / std::mt19937::max() - 1.0;
        farthest = std::max(farthest, std::abs(y));
        return y;
    });
    for (QPointF &point : points)
        point.ry() /= farthest;
    return points;
}

inline Points sine(int count)
{
    return sampled(count, [count](int i) { return std::sin(20.0 * i / count); });
}

/// Ten levels, each held and then left at once.
inline Points steps(int count)
{
    return sampled(count,
                   [count](int i) { return double(i * 10LL / std::max(1, count) * 7 % 10) / 5.0 - 0.9; });
}

/// Zero but for a few single samples.
inline Points spikes(int count)
{
    return sampled(count, [count](int i) {
        const int distance = std::max(1, count / 9);
        return i % distance == distance / 2 ? (i / distance % 2 ? 0.9 : -0.7) : 0.0;
    });
}

inline Points constant(int count)
{
    return sampled(count, [](int) { return 0.25; });
}

/// Steps with a gap at each of them, and a noisy part with many short gaps.
inline Points gaps(int count)
{
    const double gap = std::numeric_limits<double>::quiet_NaN();
    const Points fromSteps = steps(count);
    const Points fromNoise = noise(count);
    return sampled(count, [&, count](int i) {
        const int part = std::max(2, count / 10);
        if (i % part < 2 || (i > count / 2 && i % 7 == 0 && i % 70 < 20))
            return gap;
        return fromSteps.at(i).y() * 0.7 + (i > count / 2 ? 0.3 * fromNoise.at(i).y() : 0.0);
    });
}

} // namespace SeriesShapes

#endif // SERIESSHAPES_H
