#include "internal/painterstate_p.h"
#include "internal/straightlines_p.h"
#include "zrqtaxis_p.h"

#include <QtCore/QVarLengthArray>
#include <QtGui/QPen>
#include <QtGui/QTransform>

using AxisGeometry::truncated;

/// Paints the axis in pixels of the widget and leaves the painter as it found it. One path serves all edges;
/// *along* and *across* become x and y only where something is drawn.
void ZrQtAxisPrivate::paint(QPainter *painter) const
{
    const PainterState state(*painter);
    painter->setPen(QPen());
    painter->setFont(q->font());

    paintAxisLine(painter);
    paintTicks(painter, tickPositions, tickSize);
    paintTickLabels(painter);
    paintTicks(painter, subTickPositions, subTickSize);
    paintAxisLabel(painter);
}

void ZrQtAxisPrivate::paintAxisLine(QPainter *painter) const
{
    const auto part = AxisGeometry::unlinedPart(min, max, effectiveDrawMin, effectiveDrawMax);
    const auto ends = AxisGeometry::ends(along(), part);
    if (!drawAxisLine || ends.low == ends.high)
        return;
    const QLine line = isVertical() ? QLine(axisLinePos, ends.high, axisLinePos, ends.low)
                                    : QLine(ends.low, axisLinePos, ends.high, axisLinePos);
    drawStraightLines(*painter, &line, 1);
}

/// Ticks and sub-ticks point away from the plot area.
void ZrQtAxisPrivate::paintTicks(QPainter *painter, const QVector<double> &positions, int size) const
{
    if (size <= 0)
        return;
    const int visibleSize = truncated(size);
    const int tickEnd
        = AxisGeometry::isOuter(position) ? axisLinePos - visibleSize : axisLinePos + visibleSize;
    const bool vertical = isVertical();

    QVarLengthArray<QLine, 256> lines;
    lines.reserve(positions.size());
    for (const double tick : positions) {
        const int pixel = truncated(tick);
        lines.append(vertical ? QLine(axisLinePos, pixel, tickEnd, pixel)
                              : QLine(pixel, axisLinePos, pixel, tickEnd));
    }
    drawStraightLines(*painter, lines.constData(), lines.size());
}

void ZrQtAxisPrivate::paintTickLabels(QPainter *painter) const
{
    const PainterState state(*painter);
    painter->setPen(labelColor);

    const int widest = truncated(tickTextRect.width());
    for (int i = 0; i < tickLabels.size(); ++i) {
        const TickLabel &label = tickLabels.at(i);
        const int pixel = truncated(tickPositions.at(i));
        if (isVertical()) {
            const double top = pixel - tickTextRect.height() * 0.5 - 1.0;
            painter->drawStaticText(QPointF(tickTextPos + widest - label.width, top), label.text);
        } else if (verticalXTickTexts) {
            const PainterState unturned(*painter);
            painter->setTransform(turnedTickText(pixel, label.width), true);
            painter->drawStaticText(QPointF(-label.width, 0.0), label.text);
        } else {
            const int start = pixel - widest / 2;
            const double left = start + (widest - label.width) * 0.5;
            painter->drawStaticText(QPointF(left, tickTextPos), label.text);
        }
    }
}

/// Where a turned tick text ends at the top of its line: texts read upwards. Below the plot area they hang
/// from the ticks, above it they stand on them.
QTransform ZrQtAxisPrivate::turnedTickText(int pixel, int textWidth) const
{
    int top = tickTextPos;
    if (position != Qt::BottomEdge)
        top += truncated(tickTextRect.width()) - textWidth;
    const int left = pixel - truncated(tickTextRect.height()) / 2;
    QTransform transform;
    transform.translate(left, top);
    transform.rotate(-90.0);
    return transform;
}

void ZrQtAxisPrivate::paintAxisLabel(QPainter *painter) const
{
    const PainterState state(*painter);
    painter->setPen(labelColor);
    painter->setFont(axisLabelFont);

    const QSizeF size = axisLabelRect.size();
    const AxisGeometry::Along way = along();
    if (!isVertical()) {
        const int left = truncated((double(way.extent) + marginLow - marginHigh - size.width()) * 0.5);
        painter->drawStaticText(left, axisLabelPos, axisLabel);
        return;
    }

    const double twiceCentre = double(way.extent) + marginHigh - marginLow;
    if (!verticalYLabel) {
        const int top = truncated(twiceCentre - truncated(size.height())) / 2;
        painter->drawStaticText(axisLabelPos, top, axisLabel);
        return;
    }
    // Reads upwards: the text starts at the lower end of the space that it takes.
    const int start = truncated((twiceCentre + size.width()) * 0.5);
    painter->setTransform(QTransform(0.0, -1.0, 1.0, 0.0, axisLabelPos, start), true);
    painter->drawStaticText(0, 0, axisLabel);
}
