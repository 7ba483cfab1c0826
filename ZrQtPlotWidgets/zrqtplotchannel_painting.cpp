#include "internal/channeltransform_p.h"
#include "internal/painterstate_p.h"
#include "internal/plotgeometry_p.h"
#include "internal/polyline_p.h"
#include "zrqtplotchannel.h"
#include "zrqtplotchannel_p.h"
#include "zrqtplotfeature.h"

#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <initializer_list>
#include <iterator>

namespace {

// Pixels, as every handle is seen and grabbed.
constexpr QRectF handleRect(0.0, 0.0, 8.0, 8.0);

// QPen prints a warning for a width outside of this range, at every paint.
constexpr int widestPen = 32767;

using Corners = std::initializer_list<QPointF>;

// The order of the move crosses.
constexpr ZrQtPlotChannel::ContentType allTypes[]
    = {ZrQtPlotChannel::Points,     ZrQtPlotChannel::Lines,   ZrQtPlotChannel::LineSegments,
       ZrQtPlotChannel::Rectangles, ZrQtPlotChannel::Circles, ZrQtPlotChannel::Custom};

QRectF centered(const QSizeF &size, const QPointF &center)
{
    return QRectF(QPointF(center.x() - size.width() / 2, center.y() - size.height() / 2), size);
}

/// Calls `draw` with the painter's pen, made solid where a dashed one would never end on `corners`.
template <typename Points, typename Draw> void drawShape(QPainter &painter, const Points &corners, Draw draw)
{
    if (!isTooLongForDashes(painter, std::data(corners), static_cast<int>(std::size(corners)))) {
        draw();
        return;
    }
    const PainterState state(painter);
    QPen pen = painter.pen();
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    draw();
}

template <typename Points>
void drawHandles(QPainter &painter, const QSizeF &handleSize, const Points &centers)
{
    const PainterState state(painter);
    QPen pen = painter.pen();
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    painter.setBrush(QBrush());
    for (const QPointF &center : centers) {
        if (isFinite(center))
            painter.drawRect(centered(handleSize, center));
    }
}

void drawMoveCross(QPainter &painter, const QSizeF &handleSize, const QPointF &center)
{
    if (!isFinite(center))
        return;
    const QRectF square = centered(handleSize, center);
    const QLineF across(square.left(), center.y(), square.right(), center.y());
    const QLineF upright(center.x(), square.top(), center.x(), square.bottom());
    drawShape(painter, Corners{center}, [&] {
        painter.drawLine(across);
        painter.drawLine(upright);
    });
}

void drawLine(QPainter &painter, const QLineF &line)
{
    drawShape(painter, Corners{line.p1(), line.p2()}, [&] { painter.drawLine(line); });
}

} // namespace

void ZrQtPlotChannel::paint(QPainter &painter)
{
    Q_D(ZrQtPlotChannel);
    if (!isVisible())
        return;
    const PainterState state(painter);
    QPen pen = painter.pen();
    pen.setStyle(d->lineStyle);
    pen.setColor(d->lineColor);
    pen.setWidth(qBound(0, d->lineWidth, widestPen));
    pen.setCosmetic(true);
    painter.setPen(pen);
    if (d->fillColor != QColor(Qt::transparent))
        painter.setBrush(QBrush(d->fillColor, Qt::SolidPattern));
    painter.setRenderHint(QPainter::Antialiasing, d->antialiasing);
    painter.setWorldTransform(d->transform, true);

    const QSizeF handleSize
        = d->editable ? d->inverseTransform.mapRect(handleRect).size() : QSizeF(-1.0, -1.0);
    if (isFinite(painter.worldTransform()))
        d->drawContent(painter, handleSize);
    if (d->customFeature) {
        const PainterState featureState(painter);
        d->customFeature->paint(painter, handleSize);
    }
    // On purpose one table for the whole process: the channel that is painted first decides for all.
    static const QHash<ContentType, bool> movableTypes = d->movableTypes();
    if (d->editable && isFinite(painter.worldTransform()))
        d->drawMoveCrosses(painter, handleSize, movableTypes);
}

QHash<ZrQtPlotChannel::ContentType, bool> ZrQtPlotChannelPrivate::movableTypes() const
{
    return {{ZrQtPlotChannel::Points, pointsMovable},
            {ZrQtPlotChannel::Lines, linesMovable},
            {ZrQtPlotChannel::LineSegments, lineSegmentsMovable},
            {ZrQtPlotChannel::Rectangles, rectanglesMovable},
            {ZrQtPlotChannel::Circles, circlesMovable},
            {ZrQtPlotChannel::Custom, false}};
}

void ZrQtPlotChannelPrivate::drawContent(QPainter &painter, const QSizeF &handleSize)
{
    drawPointContent(painter, handleSize);
    drawRectangles(painter, handleSize);
    drawCircles(painter, handleSize);
    drawLineSegments(painter, handleSize);
    drawLines(painter, handleSize);
}

void ZrQtPlotChannelPrivate::drawPointContent(QPainter &painter, const QSizeF &handleSize)
{
    const bool closed
        = connectFirstAndLastPoint || (!points.isEmpty() && points.constFirst() == points.constLast());
    if (closed)
        drawShape(painter, points, [&] { painter.drawPolygon(points, Qt::OddEvenFill); });
    else
        drawPolyline(painter, points);
    if (pointStyle != ZrQtBaseChannel::PointStyle_None)
        q_func()->drawPoints(painter, points);
    if (pointsEditable && !handleSize.isEmpty())
        drawHandles(painter, handleSize, points);
}

void ZrQtPlotChannelPrivate::drawRectangles(QPainter &painter, const QSizeF &handleSize) const
{
    for (const QRectF &rect : rectangles) {
        if (!isFinite(rect))
            continue;
        drawShape(painter, Corners{rect.topLeft(), rect.bottomRight()}, [&] { painter.drawRect(rect); });
        if (!rectanglesEditable || handleSize.isEmpty())
            continue;
        drawHandles(painter, handleSize,
                    Corners{rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight(),
                            leftMiddle(rect), rightMiddle(rect), topMiddle(rect), bottomMiddle(rect)});
        drawMoveCross(painter, handleSize, rect.center());
    }
}

void ZrQtPlotChannelPrivate::drawCircles(QPainter &painter, const QSizeF &handleSize) const
{
    for (const QRectF &circle : circles) {
        if (!isFinite(circle))
            continue;
        drawShape(painter, Corners{circle.topLeft(), circle.bottomRight()},
                  [&] { painter.drawEllipse(circle); });
        if (!circlesEditable || handleSize.isEmpty())
            continue;
        drawHandles(painter, handleSize,
                    Corners{rightMiddle(circle), leftMiddle(circle), topMiddle(circle), bottomMiddle(circle),
                            diagonalHandle(circle)});
        drawMoveCross(painter, handleSize, circle.center());
    }
}

void ZrQtPlotChannelPrivate::drawLineSegments(QPainter &painter, const QSizeF &handleSize) const
{
    for (const QLineF &segment : lineSegments) {
        if (!isFinite(segment))
            continue;
        drawLine(painter, segment);
        if (lineSegmentsEditable && !handleSize.isEmpty())
            drawHandles(painter, handleSize, Corners{segment.center(), segment.p1(), segment.p2()});
    }
}

void ZrQtPlotChannelPrivate::drawLines(QPainter &painter, const QSizeF &handleSize)
{
    if (lines.isEmpty())
        return;
    const QVector<QLineF> extended = extendedToBorder(lines, canvas);
    for (const QLineF &line : extended) {
        drawLine(painter, line);
        if (linesEditable && !handleSize.isEmpty())
            drawHandles(painter, handleSize, Corners{line.center()});
    }
    // The extent of infinite lines follows the canvas, and the paint is what notices.
    typeRectangles.insert(ZrQtPlotChannel::Lines, boundingRectangle(extended));
}

void ZrQtPlotChannelPrivate::drawMoveCrosses(QPainter &painter, const QSizeF &handleSize,
                                             const QHash<ContentType, bool> &movableTypes) const
{
    for (const ContentType type : allTypes) {
        const QRectF extent = typeRectangles.value(type);
        if (movableTypes.value(type) && extent.isValid())
            drawMoveCross(painter, handleSize, extent.center());
    }
    if (movable && boundingRect.isValid())
        drawMoveCross(painter, handleSize, boundingRect.center());
}
