#include "internal/painterstate_p.h"
#include "zrqtplotslider.h"
#include "zrqtplotslider_p.h"

#include <QtGui/QCursor>
#include <QtGui/QPainter>

namespace {

constexpr QColor OutsideColor(130, 130, 130, 100);
constexpr QColor MiddleColor(0, 100, 175, 20);

} // namespace

void ZrQtPlotSlider::paintEvent(QPaintEvent *)
{
    Q_D(const ZrQtPlotSlider);
    QPainter painter(this);
    d->drawFrame(painter);
    d->drawOutside(painter);
    d->drawMiddle(painter);
    d->drawHandles(painter);
}

void ZrQtPlotSliderPrivate::drawFrame(QPainter &painter) const
{
    const PainterState state(painter);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(q->rect().adjusted(0, 0, -1, -1));
}

void ZrQtPlotSliderPrivate::drawOutside(QPainter &painter) const
{
    painter.fillRect(QRect(q->rect().topLeft(), leftHandle().bottomLeft()), OutsideColor);
    painter.fillRect(QRect(rightHandle().topRight(), q->rect().bottomRight()), OutsideColor);
}

void ZrQtPlotSliderPrivate::drawMiddle(QPainter &painter) const
{
    // Below the upper line of the frame.
    if (isMoving() || isMiddleHovered())
        painter.fillRect(middle().adjusted(0, 1, 0, 0), MiddleColor);
}

void ZrQtPlotSliderPrivate::drawHandles(QPainter &painter) const
{
    const PainterState state(painter);
    const bool middleHovered = isMiddleHovered();
    const auto draw = [&](const QRect &handle, bool dragged) {
        const bool active = dragged || middleHovered || isHovered(handle);
        painter.setBrush(active ? activeHandleColor : slaveHandleColor);
        painter.drawRect(handle);
    };
    painter.setPen(handlePen);
    draw(leftHandle(), leftDragging);
    draw(rightHandle(), rightDragging);
}

bool ZrQtPlotSliderPrivate::isMiddleHovered() const
{
    return isHovered(middle().adjusted(0, 1, 0, 0));
}

/// During a drag nothing counts as hovered, wherever the mouse is.
bool ZrQtPlotSliderPrivate::isHovered(const QRect &rect) const
{
    return !isDragging() && rect.contains(q->mapFromGlobal(QCursor::pos()));
}
