#include "pointmarkers_p.h"

#include "channeltransform_p.h"
#include "painterstate_p.h"

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtGui/QPen>

#include <cmath>

namespace {

// Pixels; no screen reaches so far, and Qt draws odd things for coordinates that are far beyond.
constexpr int farthestPixel = 1 << 29;

/// Whether a marker of any sensible size can be seen at `pixel`; false for NaN.
bool isNearScreen(const QPointF &pixel)
{
    return std::abs(pixel.x()) <= farthestPixel && std::abs(pixel.y()) <= farthestPixel;
}

void drawFilledMarkers(QPainter &painter, const QVector<QPointF> &points, const MarkerStyle &style)
{
    const PainterState state(painter);
    painter.setPen(Qt::NoPen);
    QRect marker(0, 0, style.size, style.size);
    for (const QPointF &point : points) {
        if (!style.canvas.contains(point))
            continue;
        // A rectangle "contains" NaN: no comparison with its edges fails.
        const QPointF center = style.toPixel.map(point);
        if (!isNearScreen(center))
            continue;
        marker.moveCenter(truncatedToPoint(center));
        if (style.shape == MarkerShape::Rectangle)
            painter.drawRect(marker);
        else
            painter.drawEllipse(marker);
    }
}

void drawCrosses(QPainter &painter, const QVector<QPointF> &points, const MarkerStyle &style)
{
    const double s = style.size;
    for (const QPointF &point : points) {
        const QPointF center = style.toPixel.map(point);
        if (!isNearScreen(center))
            continue;
        if (style.shape == MarkerShape::Cross) {
            painter.drawLine(center - QPointF(s, 0.0), center + QPointF(s, 0.0));
            painter.drawLine(center - QPointF(0.0, s), center + QPointF(0.0, s));
        } else {
            painter.drawLine(center - QPointF(s, s), center + QPointF(s, s));
            painter.drawLine(center + QPointF(s, -s), center + QPointF(-s, s));
        }
    }
}

} // namespace

void drawPointMarkers(QPainter &painter, const QVector<QPointF> &points, const MarkerStyle &style)
{
    if (style.shape == MarkerShape::None)
        return;
    const PainterState state(painter);
    QPen pen = painter.pen();
    pen.setStyle(Qt::SolidLine);
    pen.setColor(style.color);
    painter.setPen(pen);
    painter.setBrush(QBrush(style.color, Qt::SolidPattern));
    painter.resetTransform();
    switch (style.shape) {
    case MarkerShape::Rectangle:
    case MarkerShape::Circle:
        drawFilledMarkers(painter, points, style);
        break;
    case MarkerShape::Cross:
    case MarkerShape::DiagonalCross:
        drawCrosses(painter, points, style);
        break;
    case MarkerShape::None:
        break;
    }
}
