#ifndef COORDINATERANGE_P_H
#define COORDINATERANGE_P_H

#include "sampleextent_p.h"

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

/// The extent of points in both directions.
class PointExtent
{
public:
    void include(const QPointF &point)
    {
        m_x.include(point.x());
        m_y.include(point.y());
    }

    void include(const PointExtent &other)
    {
        m_x.include(other.m_x);
        m_y.include(other.m_y);
    }

    /// The rectangle of the extent. If infinities leave it without a usable edge, that of the clipped extent;
    /// a null rectangle when a direction has no number.
    [[nodiscard]] QRectF rect() const;

private:
    SampleExtent m_x;
    SampleExtent m_y;
};

/// The extent of the points `pointAt(0)` to `pointAt(count - 1)`, in one pass.
template <typename PointAt> [[nodiscard]] QRectF extentOfPoints(int count, PointAt pointAt)
{
    // Two, because one alone waits for itself at every point.
    PointExtent even;
    PointExtent odd;
    for (int i = 0; i + 1 < count; i += 2) {
        even.include(pointAt(i));
        odd.include(pointAt(i + 1));
    }
    if (count % 2 != 0)
        even.include(pointAt(count - 1));
    even.include(odd);
    return even.rect();
}

/// The bounding rectangle of `points` as they are. Where NaN or infinities among them leave it without a
/// usable edge, the extent of the numbers after clipping; a null rectangle when a direction has no number.
[[nodiscard]] QRectF extentOfPoints(const QVector<QPointF> &points);

#endif // COORDINATERANGE_P_H
