#include "boundingtracker_p.h"

namespace BoundingTracker {

namespace {

bool within(double value, double from, double to)
{
    return value >= from && value <= to;
}

} // namespace

Comparison compare(const QRectF &known, const QRectF &reported, CanvasScaling::Direction direction,
                   double tolerance)
{
    const CanvasScaling::Extent old = CanvasScaling::extentOf(known, direction);
    const CanvasScaling::Extent now = CanvasScaling::extentOf(reported, direction);
    const double reach = tolerance * CanvasScaling::sizeOf(known, direction) / 2.0;

    Comparison result;
    result.lowKept = within(now.low, old.low - reach, old.low + reach);
    result.highKept = within(now.high, old.high - reach, old.high + reach);
    result.inside = !result.bothKept() && within(now.low, old.low - reach, old.high + reach)
                    && within(now.high, old.low - reach, old.high + reach);
    result.changed = now.low != old.low
                     || CanvasScaling::sizeOf(reported, direction) != CanvasScaling::sizeOf(known, direction);
    return result;
}

} // namespace BoundingTracker
