#include "channeltransform_p.h"

#include <cmath>
#include <limits>

QTransform channelTransform(const QRectF &canvas, const QSize &size, AxisInversion inverted)
{
    const double m11 = size.width() * (inverted.x ? -1.0 : 1.0) / canvas.width();
    const double m22 = size.height() * (inverted.y ? 1.0 : -1.0) / canvas.height();
    const double xAtOrigin = inverted.x ? canvas.right() : canvas.left();
    const double yAtOrigin = inverted.y ? canvas.top() : canvas.bottom();
    return QTransform(m11, 0.0, 0.0, 0.0, m22, 0.0, -(xAtOrigin * m11), -(yAtOrigin * m22), 1.0);
}

QTransform withSnappedOffset(const QTransform &transform, const QRectF &canvas, double pixelWidth)
{
    const double width = canvas.width();
    const double left = canvas.left();
    const double offset = (std::fmod(left, width / pixelWidth) - left) * pixelWidth / width;
    return QTransform(transform.m11(), transform.m12(), transform.m13(), transform.m21(), transform.m22(),
                      transform.m23(), offset, transform.m32(), transform.m33());
}

QTransform inverseOf(const QTransform &transform)
{
    bool isInverse = false;
    QTransform inverse = transform.inverted(&isInverse);
    // Qt takes the few pixels per unit of a very wide canvas for none.
    const auto canDivideBy = [](double scale) { return std::isfinite(scale) && scale != 0.0; };
    if (isInverse || !canDivideBy(transform.m11()) || !canDivideBy(transform.m22()))
        return inverse;
    return QTransform(1.0 / transform.m11(), 0.0, 0.0, 0.0, 1.0 / transform.m22(), 0.0,
                      -transform.m31() / transform.m11(), -transform.m32() / transform.m22(), 1.0);
}

bool isFinite(const QTransform &transform)
{
    const double elements[]
        = {transform.m11(), transform.m12(), transform.m13(), transform.m21(), transform.m22(),
           transform.m23(), transform.m31(), transform.m32(), transform.m33()};
    for (const double element : elements) {
        if (!std::isfinite(element))
            return false;
    }
    return true;
}

int truncatedToInt(double value)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    if (value <= lowest)
        return lowest;
    if (value >= highest)
        return highest;
    return static_cast<int>(value);
}

QPoint truncatedToPoint(const QPointF &point)
{
    return QPoint(truncatedToInt(point.x()), truncatedToInt(point.y()));
}
