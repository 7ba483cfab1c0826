#ifndef GRIDPOSITIONS_P_H
#define GRIDPOSITIONS_P_H

#include <QtCore/QVector>

/// Positions of grid lines at fixed steps, in pixels along one direction of the plot area. Every list is
/// bounded by the number of half pixels of the range, whatever the spacing.
namespace GridPositions {

/// Where lines are drawn along one direction of the plot area, the smaller pixel first.
struct Range
{
    double first = 0.0;
    double last = 0.0;

    double size() const { return last - first; }
};

struct Lines
{
    QVector<double> main;
    QVector<double> sub;
};

/// first + step, first + 2 · step, … as long as more than 2 pixels are left to the end of the range. A step
/// that is not greater than 0 counts as 1.
[[nodiscard]] QVector<double> steps(Range range, double step);

/// Lines at fractions of the range, and sub lines at fractions of each interval; both fractions are clamped
/// to [0, 1], a sub fraction of 0 gives no sub lines.
[[nodiscard]] Lines percentSteps(Range range, double fraction, double subFraction);

/// Lines and sub lines every so many pixels, at least 1.
[[nodiscard]] Lines pixelSteps(Range range, double spacing, double subSpacing);

} // namespace GridPositions

#endif // GRIDPOSITIONS_P_H
