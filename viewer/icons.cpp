#include "icons.h"

#include "palette.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPixmap>

namespace {

// All icons are drawn on a square of this side; the sizes are those of usual tool bars at usual resolutions.
constexpr double kSide = 24.0;
constexpr int kSizes[] = {16, 24, 32, 48, 64};

constexpr double kPenWidth = 2.0;

QPen pen(const QColor &color, Qt::PenStyle style = Qt::SolidLine)
{
    return QPen(color, kPenWidth, style, Qt::RoundCap, Qt::RoundJoin);
}

void drawPan(QPainter &painter)
{
    // One arrow, four times.
    for (int i = 0; i < 4; ++i) {
        painter.drawLine(QPointF(12, 12), QPointF(12, 3));
        painter.drawPolyline(QPolygonF({{9, 6}, {12, 3}, {15, 6}}));
        painter.translate(12, 12);
        painter.rotate(90);
        painter.translate(-12, -12);
    }
}

void drawZoom(QPainter &painter)
{
    painter.drawEllipse(QPointF(10, 10), 6, 6);
    painter.drawLine(QPointF(14.5, 14.5), QPointF(21, 21));
}

void drawRegion(QPainter &painter)
{
    painter.setPen(pen(painter.pen().color(), Qt::DotLine));
    painter.drawRect(QRectF(4, 5, 16, 14));
}

void drawLine(QPainter &painter)
{
    painter.drawLine(QPointF(5, 19), QPointF(19, 5));
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(5, 19), 1.5, 1.5);
    painter.drawEllipse(QPointF(19, 5), 1.5, 1.5);
}

void drawHome(QPainter &painter)
{
    painter.drawPolyline(QPolygonF({{3, 12}, {12, 4}, {21, 12}}));
    painter.drawPolyline(QPolygonF({{6, 11}, {6, 20}, {18, 20}, {18, 11}}));
}

/// A piece of a curve, behind the markers.
void drawCurve(QPainter &painter)
{
    QPainterPath path(QPointF(3, 17));
    path.cubicTo(QPointF(9, 0), QPointF(13, 26), QPointF(21, 7));
    painter.drawPath(path);
    painter.setPen(pen(markerColor()));
}

void drawAddLine(QPainter &painter)
{
    drawCurve(painter);
    painter.drawLine(QPointF(12, 3), QPointF(12, 21));
}

void drawAddRegion(QPainter &painter)
{
    drawCurve(painter);
    painter.drawRect(QRectF(7, 4, 10, 16));
}

void drawAddCircle(QPainter &painter)
{
    drawCurve(painter);
    painter.drawEllipse(QPointF(12, 12), 7, 7);
}

void drawRemoveMarkers(QPainter &painter)
{
    drawCurve(painter);
    painter.drawLine(QPointF(7, 7), QPointF(17, 17));
    painter.drawLine(QPointF(17, 7), QPointF(7, 17));
}

void draw(Icon icon, QPainter &painter)
{
    switch (icon) {
    case Icon::Pan:
        return drawPan(painter);
    case Icon::Zoom:
        return drawZoom(painter);
    case Icon::Region:
        return drawRegion(painter);
    case Icon::Line:
        return drawLine(painter);
    case Icon::Home:
        return drawHome(painter);
    case Icon::AddLine:
        return drawAddLine(painter);
    case Icon::AddRegion:
        return drawAddRegion(painter);
    case Icon::AddCircle:
        return drawAddCircle(painter);
    case Icon::RemoveMarkers:
        return drawRemoveMarkers(painter);
    }
}

} // namespace

QIcon makeIcon(Icon icon, const QColor &color)
{
    QIcon result;
    for (const int size : kSizes) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / kSide, size / kSide);
        painter.setPen(pen(color));
        draw(icon, painter);
        painter.end();
        result.addPixmap(pixmap);
    }
    return result;
}
