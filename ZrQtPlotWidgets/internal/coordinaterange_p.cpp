#include "coordinaterange_p.h"

#include <cmath>

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

QRectF PointExtent::rect() const
{
    if (m_x.isEmpty() || m_y.isEmpty())
        return QRectF();
    // A far edge alone may be infinite, clipping mends it.
    if (std::isfinite(m_x.low) && std::isfinite(m_y.low))
        return QRectF(m_x.low, m_y.low, m_x.high - m_x.low, m_y.high - m_y.low);
    return QRectF(QPointF(clippedCoordinate(m_x.low), clippedCoordinate(m_y.low)),
                  QPointF(clippedCoordinate(m_x.high), clippedCoordinate(m_y.high)));
}

PointExtent extentOfPoints(const QVector<QPointF> &points)
{
    return extentOfPoints(0, points.size(), [&points](int i) { return points.at(i); });
}

QRectF boundingRectOfPoints(const QVector<QPointF> &points)
{
    return extentOfPoints(points).rect();
}
