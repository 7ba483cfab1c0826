#include "canvasscaling_p.h"

#include <algorithm>
#include <cmath>

namespace CanvasScaling {

namespace {

constexpr double nearPixels = 10.0;

QRectF anchored(const QRectF &adjusted, const QRectF &canvas, Direction direction, AspectAnchor anchor)
{
    switch (anchor) {
    case AspectAnchor::Start:
        break;
    case AspectAnchor::Centre:
        return centred(adjusted, direction, canvas);
    case AspectAnchor::End:
        return withExtent(adjusted, direction,
                          {extentOf(adjusted, direction).low, extentOf(canvas, direction).high});
    }
    return adjusted;
}

} // namespace

QRectF withExtent(const QRectF &rect, Direction direction, Extent extent)
{
    return direction == Direction::X ? QRectF(extent.low, rect.y(), extent.size(), rect.height())
                                     : QRectF(rect.x(), extent.low, rect.width(), extent.size());
}

QRectF movedTo(const QRectF &rect, Direction direction, double low)
{
    return direction == Direction::X ? QRectF(low, rect.y(), rect.width(), rect.height())
                                     : QRectF(rect.x(), low, rect.width(), rect.height());
}

Extent fitted(Extent data, double marginLow, double marginHigh)
{
    const double size = data.size();
    const double margins = marginLow + marginHigh;
    const double total = 1.0 - margins != 0.0 ? size / (1.0 - margins) : size;
    const double space = total - size;
    if (margins == 0.0)
        return data;
    return {data.low - space * marginLow / margins, data.high + space * marginHigh / margins};
}

bool isSame(const QRectF &a, const QRectF &b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

QRectF centred(const QRectF &canvas, Direction direction, const QRectF &data)
{
    const Extent extent = extentOf(data, direction);
    const double centre = extent.low + sizeOf(data, direction) / 2.0;
    return movedTo(canvas, direction, centre - sizeOf(canvas, direction) / 2.0);
}

QRectF atHead(const QRectF &canvas, Direction direction, const QRectF &data)
{
    const Extent extent = extentOf(data, direction);
    if (sizeOf(canvas, direction) > sizeOf(data, direction))
        return movedTo(canvas, direction, extent.low);
    return movedTo(canvas, direction, extent.high - sizeOf(canvas, direction));
}

bool edgesNear(Extent data, Extent canvas, int pixels)
{
    const double size = canvas.size();
    if (size == 0.0)
        return false;
    return pixels * std::abs(data.low - canvas.low) / size <= nearPixels
           && pixels * std::abs(data.high - canvas.high) / size <= nearPixels;
}

QRectF withAspectRatio(const QRectF &canvas, const QSizeF &plotSize, AspectAnchor anchorX,
                       AspectAnchor anchorY)
{
    if (!canvas.isValid())
        return canvas;
    const double ratio = canvas.width() / canvas.height();
    const bool hasPlot = plotSize.width() > 0.0 && plotSize.height() > 0.0;
    const double plotRatio = hasPlot ? plotSize.width() / plotSize.height() : 1.0;
    if (std::min(std::abs(ratio), std::abs(plotRatio)) >= std::abs(ratio - plotRatio) * 1e12)
        return canvas;

    QRectF adjusted = canvas;
    if (ratio > plotRatio)
        adjusted.setHeight(canvas.width() / plotRatio);
    else
        adjusted.setWidth(canvas.height() * plotRatio);
    adjusted = anchored(adjusted, canvas, Direction::X, anchorX);
    return anchored(adjusted, canvas, Direction::Y, anchorY);
}

} // namespace CanvasScaling
