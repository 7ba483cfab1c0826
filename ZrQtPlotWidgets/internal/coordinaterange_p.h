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

    /// Whether clipping leaves all included points as they are.
    [[nodiscard]] bool isWithinRange() const { return isWithinRange(m_x) && isWithinRange(m_y); }

    /// The rectangle of the extent. If infinities leave it without a usable edge, that of the clipped extent;
    /// a null rectangle when a direction has no number.
    [[nodiscard]] QRectF rect() const;

private:
    static bool isWithinRange(const SampleExtent &extent)
    {
        return extent.isEmpty() || (extent.low >= -largestCoordinate && extent.high <= largestCoordinate);
    }

    SampleExtent m_x;
    SampleExtent m_y;
};

/// The extent of the points `pointAt(begin)` to `pointAt(end - 1)`, in one pass.
template <typename PointAt> [[nodiscard]] PointExtent extentOfPoints(int begin, int end, PointAt pointAt)
{
    // Two, because one alone waits for itself at every point.
    PointExtent even;
    PointExtent odd;
    int i = begin;
    for (; i + 1 < end; i += 2) {
        even.include(pointAt(i));
        odd.include(pointAt(i + 1));
    }
    if (i < end)
        even.include(pointAt(i));
    even.include(odd);
    return even;
}

[[nodiscard]] PointExtent extentOfPoints(const QVector<QPointF> &points);

/// The bounding rectangle of `points` as they are. Where NaN or infinities among them leave it without a
/// usable edge, the extent of the numbers after clipping; a null rectangle when a direction has no number.
[[nodiscard]] QRectF boundingRectOfPoints(const QVector<QPointF> &points);

#endif // COORDINATERANGE_P_H
