#include "plotgestures_p.h"

#include <QtCore/QVector>

#include <algorithm>
#include <array>
#include <cmath>

namespace PlotGestures {

namespace {

constexpr double leastOpening = 0.1;
constexpr double openingShare = 0.1;

double shift(double size, double delta, double pixels, double sign)
{
    return delta != 0.0 && pixels > 0.0 ? size * (delta / pixels) * sign : 0.0;
}

double zoomedSize(double size, double factor, double dataSize)
{
    return size == 0.0 && factor > 1.0 ? std::max(leastOpening, dataSize * openingShare) : size * factor;
}

double zoomedLow(double low, double size, double origin, double newSize)
{
    if (size == 0.0)
        return low - newSize * 0.5;
    // An infinite size times 0 is no number.
    return origin != 0.0 ? low + size * origin : low;
}

double fraction(double pixels, double size)
{
    return size > 0.0 ? pixels / size : 0.0;
}

// Direction in which a degenerate band is widened for the intersection, so that it does not vanish there.
double widened(double size, double low, double areaLow)
{
    if (size != 0.0)
        return size;
    return low != areaLow ? -1.0 : 1.0;
}

} // namespace

QTransform pixelToValue(const QSizeF &plotSize, const QRectF &canvasX, const QRectF &canvasY)
{
    return {fraction(canvasX.width(), plotSize.width()),
            0.0,
            0.0,
            -fraction(canvasY.height(), plotSize.height()),
            canvasX.left(),
            canvasY.bottom()};
}

QPointF valueOnAxes(const QPointF &pixel, const QRectF &plotArea, const QRectF &canvasX,
                    const QRectF &canvasY, Inversion inversion)
{
    const double alongX = canvasX.width() * fraction(pixel.x() - plotArea.left(), plotArea.width());
    const double alongY = canvasY.height() * fraction(pixel.y() - plotArea.top(), plotArea.height());
    return {inversion.x ? canvasX.right() - alongX : canvasX.left() + alongX,
            inversion.y ? canvasY.top() + alongY : canvasY.bottom() - alongY};
}

QRectF panned(const QRectF &canvas, const QPointF &delta, const QSizeF &plotSize, Inversion inversion)
{
    return canvas.translated(shift(canvas.width(), delta.x(), plotSize.width(), inversion.x ? -1.0 : 1.0),
                             shift(canvas.height(), delta.y(), plotSize.height(), inversion.y ? 1.0 : -1.0));
}

QRectF zoomed(const QRectF &canvas, const QPointF &origin, ZoomFactors factors, const QSizeF &dataSize)
{
    const double width = zoomedSize(canvas.width(), factors.x, dataSize.width());
    const double height = zoomedSize(canvas.height(), factors.y, dataSize.height());
    return {zoomedLow(canvas.left(), canvas.width(), origin.x(), width),
            zoomedLow(canvas.top(), canvas.height(), origin.y(), height), width, height};
}

QPointF bandOrigin(const QRectF &band, const QRectF &plotArea)
{
    return {fraction(band.left() - plotArea.left(), plotArea.width()),
            1.0 - fraction(band.bottom() - plotArea.top(), plotArea.height())};
}

ZoomFactors bandFactors(const QRectF &band, const QRectF &plotArea)
{
    return {fraction(band.width(), plotArea.width()), fraction(band.height(), plotArea.height())};
}

QPointF fixedPointOrigin(const QPointF &pixel, const QRectF &plotArea, ZoomFactors factors)
{
    const double fromLeft = fraction(pixel.x() - plotArea.left(), plotArea.width());
    // y grows upwards, so its fraction counts from the bottom.
    const double fromBottom = 1.0 - fraction(pixel.y() - plotArea.top(), plotArea.height());
    return {(1.0 - factors.x) * fromLeft, (1.0 - factors.y) * fromBottom};
}

QRectF rubberBand(const QPointF &start, const QPointF &end, const QRectF &plotArea)
{
    const QRectF between(start, end);
    QRectF band = between;
    band.setWidth(widened(between.width(), between.left(), plotArea.left()));
    band.setHeight(widened(between.height(), between.top(), plotArea.top()));
    band = band.intersected(plotArea);
    if (between.width() == 0.0)
        band.setWidth(0.0);
    if (between.height() == 0.0)
        band.setHeight(0.0);
    return band;
}

QPoint lineEnd(const QPointF &start, const QPoint &end, const QRectF &plotArea)
{
    if (plotArea.contains(end))
        return end;
    const std::array<QLineF, 4> borders{QLineF(plotArea.topLeft(), plotArea.topRight()),
                                        QLineF(plotArea.topRight(), plotArea.bottomRight()),
                                        QLineF(plotArea.bottomRight(), plotArea.bottomLeft()),
                                        QLineF(plotArea.bottomLeft(), plotArea.topLeft())};
    const QLineF line(start, end);
    QVector<QPointF> crossings;
    for (const QLineF &border : borders) {
        QPointF crossing;
        if (line.intersects(border, &crossing) == QLineF::BoundedIntersection)
            crossings.append(crossing);
    }
    if (crossings.isEmpty())
        return end;
    const auto distance = [&end](const QPointF &point) { return QLineF(point, end).length(); };
    return std::min_element(
               crossings.cbegin(), crossings.cend(),
               [&distance](const QPointF &a, const QPointF &b) { return distance(a) < distance(b); })
        ->toPoint();
}

} // namespace PlotGestures
