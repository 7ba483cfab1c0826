#include "reduction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

/// Appends what represents the samples from \a begin to \a end, which is not included.
void appendColumn(const QVector<double> &x, const QVector<double> &y, int begin, int end,
                  QVector<QPointF> *points)
{
    int first = -1;
    int last = -1;
    int lowest = -1;
    int highest = -1;
    for (int i = begin; i < end; ++i) {
        if (std::isnan(y[i]))
            continue;
        if (first < 0)
            first = lowest = highest = i;
        if (y[i] < y[lowest])
            lowest = i;
        if (y[i] > y[highest])
            highest = i;
        last = i;
    }
    if (first < 0) {
        points->append(QPointF(x[begin], std::numeric_limits<double>::quiet_NaN()));
        return;
    }
    const auto [lower, higher] = std::minmax(lowest, highest);
    std::array<int, 4> indices = {first, lower, higher, last};
    const auto distinctEnd = std::unique(indices.begin(), indices.end());
    for (auto it = indices.begin(); it != distinctEnd; ++it)
        points->append(QPointF(x[*it], y[*it]));
}

} // namespace

QVector<QPointF> reducedPoints(const QVector<double> &x, const QVector<double> &y, double left, double right,
                               int columns)
{
    QVector<QPointF> points;
    if (x.isEmpty() || columns < 1 || !(right > left))
        return points;
    int begin = static_cast<int>(std::lower_bound(x.cbegin(), x.cend(), left) - x.cbegin());
    int end = static_cast<int>(std::upper_bound(x.cbegin() + begin, x.cend(), right) - x.cbegin());
    points.reserve(4 * columns + 2);
    if (begin > 0)
        points.append(QPointF(x[begin - 1], y[begin - 1]));
    const double width = (right - left) / columns;
    for (int column = 1; column <= columns && begin < end; ++column) {
        // Not a running sum: the last column must end exactly at the right edge.
        const double edge = column == columns ? right : left + width * column;
        const auto columnEnd = column == columns
                                   ? x.cbegin() + end
                                   : std::lower_bound(x.cbegin() + begin, x.cbegin() + end, edge);
        const int next = static_cast<int>(columnEnd - x.cbegin());
        if (next > begin)
            appendColumn(x, y, begin, next, &points);
        begin = next;
    }
    if (end < x.size())
        points.append(QPointF(x[end], y[end]));
    return points;
}

QVector<QPointF> allPoints(const QVector<double> &x, const QVector<double> &y)
{
    QVector<QPointF> points;
    points.reserve(x.size());
    for (int i = 0; i < x.size(); ++i)
        points.append(QPointF(x[i], y[i]));
    return points;
}

bool hasLonelySample(const QVector<double> &y)
{
    const auto isGap = [&y](int i) { return i < 0 || i >= y.size() || std::isnan(y[i]); };
    for (int i = 0; i < y.size(); ++i) {
        if (!isGap(i) && isGap(i - 1) && isGap(i + 1))
            return true;
    }
    return false;
}
