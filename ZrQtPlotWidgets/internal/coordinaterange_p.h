#ifndef COORDINATERANGE_P_H
#define COORDINATERANGE_P_H

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>

/// Coordinates that a channel stores stay within this magnitude, so that sums and differences of two of them
/// are finite.
constexpr double largestCoordinate = 1e300;

/// `value` limited to the supported range; infinities become its ends, NaN passes unchanged.
[[nodiscard]] constexpr double clippedCoordinate(double value)
{
    if (value < -largestCoordinate)
        return -largestCoordinate;
    if (value > largestCoordinate)
        return largestCoordinate;
    return value;
}

[[nodiscard]] inline QPointF clippedPoint(const QPointF &point)
{
    return QPointF(clippedCoordinate(point.x()), clippedCoordinate(point.y()));
}

[[nodiscard]] inline QLineF clippedLine(const QLineF &line)
{
    return QLineF(clippedPoint(line.p1()), clippedPoint(line.p2()));
}

/// The rectangle whose four edges are the clipped edges of `rect`; `rect` itself if it is within the range.
[[nodiscard]] QRectF clippedRect(const QRectF &rect);

/// The bounding rectangle of `points` as they are. Where NaN or infinities among them leave it without a
/// usable edge, the extent of the numbers after clipping; a null rectangle when a direction has no number.
[[nodiscard]] QRectF extentOfPoints(const QVector<QPointF> &points);

#endif // COORDINATERANGE_P_H
