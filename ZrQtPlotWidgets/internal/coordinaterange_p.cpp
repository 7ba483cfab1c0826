#include "coordinaterange_p.h"

#include <QtGui/QPolygonF>

#include <cmath>
#include <limits>

namespace {

struct Range
{
    double low = std::numeric_limits<double>::max();
    double high = -std::numeric_limits<double>::max();

    [[nodiscard]] bool isEmpty() const { return !(low <= high); }

    void include(double value)
    {
        if (value < low)
            low = value;
        if (value > high)
            high = value;
    }
};

QRectF extentOfClippedNumbers(const QVector<QPointF> &points)
{
    Range x;
    Range y;
    for (const QPointF &point : points) {
        x.include(clippedCoordinate(point.x()));
        y.include(clippedCoordinate(point.y()));
    }
    if (x.isEmpty() || y.isEmpty())
        return QRectF();
    return QRectF(QPointF(x.low, y.low), QPointF(x.high, y.high));
}

} // namespace

QRectF clippedRect(const QRectF &rect)
{
    const auto isBeyond = [](double edge) { return std::abs(edge) > largestCoordinate; };
    if (!isBeyond(rect.left()) && !isBeyond(rect.top()) && !isBeyond(rect.right())
        && !isBeyond(rect.bottom()))
        return rect;
    // From the edges at once: moving one edge after the other never recovers from an infinite position.
    return QRectF(QPointF(clippedCoordinate(rect.left()), clippedCoordinate(rect.top())),
                  QPointF(clippedCoordinate(rect.right()), clippedCoordinate(rect.bottom())));
}

QRectF extentOfPoints(const QVector<QPointF> &points)
{
    const QRectF extent = QPolygonF(points).boundingRect();
    // With an infinite low edge the far edge is NaN; a far edge alone may be infinite, clipping mends it.
    const bool lowEdgesUsable = std::isfinite(extent.left()) && std::isfinite(extent.top());
    const bool highEdgesUsable = !std::isnan(extent.right()) && !std::isnan(extent.bottom());
    return lowEdgesUsable && highEdgesUsable ? extent : extentOfClippedNumbers(points);
}
