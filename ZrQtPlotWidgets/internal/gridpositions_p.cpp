#include "gridpositions_p.h"

#include <algorithm>
#include <cmath>

namespace GridPositions {

namespace {

constexpr double endClearance = 2.0;
// Closer lines fill every pixel all the same.
constexpr double closestStep = 0.5;

double fractionOf(double value)
{
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

} // namespace

QVector<double> steps(Range range, double step)
{
    QVector<double> positions;
    if (!std::isfinite(range.size()))
        return positions;
    const double distance = step > 0.0 ? std::max(step, closestStep) : 1.0;
    for (int i = 1;; ++i) {
        const double position = range.first + i * distance;
        if (!(range.last - position > endClearance))
            return positions;
        positions.append(position);
    }
}

Lines percentSteps(Range range, double fraction, double subFraction)
{
    Lines lines;
    lines.main = steps(range, fractionOf(fraction) * range.size());
    const double sub = fractionOf(subFraction);
    if (!(sub > 0.0))
        return lines;

    const double interval = lines.main.isEmpty() ? range.size() : lines.main.constFirst() - range.first;
    QVector<double> starts{range.first};
    starts += lines.main;
    for (double start : std::as_const(starts)) {
        const QVector<double> positions = steps({start, start + interval}, sub * interval);
        for (double position : positions) {
            // The last interval may reach beyond the plot area.
            if (position <= range.last)
                lines.sub.append(position);
        }
    }
    return lines;
}

Lines pixelSteps(Range range, double spacing, double subSpacing)
{
    return {steps(range, spacing > 1.0 ? spacing : 1.0), steps(range, subSpacing > 1.0 ? subSpacing : 1.0)};
}

} // namespace GridPositions
