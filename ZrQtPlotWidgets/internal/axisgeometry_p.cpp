#include "axisgeometry_p.h"

#include <algorithm>
#include <cmath>

namespace AxisGeometry {
namespace {

int limited(qint64 pixels)
{
    return int(std::clamp<qint64>(pixels, -LargestPixel, LargestPixel));
}

double zeroToOne(double fraction)
{
    if (!(fraction > 0.0))
        return 0.0;
    return fraction < 1.0 ? fraction : 1.0;
}

} // namespace

int truncated(double value)
{
    if (std::isnan(value))
        return 0;
    return int(std::clamp(value, -double(LargestPixel), double(LargestPixel)));
}

double Along::length() const
{
    return double(extent) - marginHigh - marginLow - 1.0;
}

UntickedPart untickedPart(double min, double max, double drawMin, double drawMax)
{
    const double range = max - min;
    if (!(std::abs(range) > 1e-12))
        return {};
    return {(drawMin - min) / range, (max - drawMax) / range};
}

UntickedPart unlinedPart(double min, double max, double drawMin, double drawMax)
{
    const double range = max - min;
    return {zeroToOne((drawMin - min) / range), zeroToOne((max - drawMax) / range)};
}

Ends ends(const Along &along, const UntickedPart &part)
{
    const double below = along.length() * part.below;
    const double above = along.length() * part.above;
    // Pixels grow downwards: a vertical axis has its low end at the bottom.
    if (along.vertical)
        return {truncated(double(along.extent) - along.marginLow - below),
                truncated(along.marginHigh + above)};
    return {truncated(along.marginLow + below), truncated(double(along.extent) - along.marginHigh - above)};
}

TickMapping tickMapping(const Ends &ends, bool inverted)
{
    const double span = double(ends.high) - ends.low;
    if (inverted)
        return {double(ends.high), -span};
    return {double(ends.low), span};
}

AcrossLayout acrossLayout(Qt::Edge edge, const AcrossContents &contents)
{
    const qint64 text = contents.textExtent;
    const qint64 label = contents.labelExtent;
    const qint64 tick = contents.tickSize;
    const qint64 editMargin = contents.editMargin;

    qint64 labelPos = 2;
    qint64 textPos = 0;
    qint64 linePos = 0;
    qint64 extent = 0;
    if (isOuter(edge)) {
        textPos = label + (editMargin + 2) * 2;
        linePos = tick + 2 + textPos + text;
        extent = linePos + 1;
    } else {
        textPos = std::max<qint64>(tick, contents.subTickSize) + 3;
        labelPos = textPos + text + (editMargin + 1) * 2;
        extent = labelPos + label + 2;
    }
    return {limited(labelPos), limited(textPos), limited(linePos), limited(std::max<qint64>(extent, 0))};
}

int minimumMargin(int labelExtent, int widgetExtent)
{
    return labelExtent / 2 + truncated(widgetExtent * 0.01) + 1;
}

int editMargin(double textHeight)
{
    return truncated(std::max(0.1 * textHeight, 3.0));
}

QSize editFieldSize(const QSizeF &text, int editMargin)
{
    return {truncated(text.width() + 2.0 * editMargin), truncated(text.height() + 2.0 * editMargin)};
}

QPoint editFieldTopLeft(const EditFieldPlace &place, double tick)
{
    const int labelExtent = isVertical(place.edge) || place.turned ? place.text.height() : place.text.width();
    const int along = truncated(tick) - labelExtent / 2 - place.editMargin;

    int across = place.tickTextPos;
    if (place.turned)
        across -= place.edge == Qt::BottomEdge ? 0 : 2 * place.editMargin;
    else
        across -= isOuter(place.edge) ? place.editMargin : 0;
    return isVertical(place.edge) ? QPoint(across, along) : QPoint(along, across);
}

} // namespace AxisGeometry
