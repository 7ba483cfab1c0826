#include "zrqtplotslider.h"

#include "zrqtplotslider_p.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>

#include <algorithm>

ZrQtPlotSliderPrivate::ZrQtPlotSliderPrivate(ZrQtPlotSlider *slider)
    : q(slider)
    , strip(slider->width())
{
}

/// The width counts as it is now: a slider that is hidden hears of a resize only when it is shown.
void ZrQtPlotSliderPrivate::updateLength()
{
    strip.setLength(q->width());
}

QRect ZrQtPlotSliderPrivate::leftHandle() const
{
    return QRect(strip.leftPosition(), 0, SliderStrip::HandleWidth, q->height());
}

QRect ZrQtPlotSliderPrivate::rightHandle() const
{
    QRect handle(0, 0, SliderStrip::HandleWidth, q->height());
    handle.moveRight(strip.rightPosition());
    return handle;
}

QRect ZrQtPlotSliderPrivate::middle() const
{
    return QRect(leftHandle().topRight(), rightHandle().bottomLeft());
}

void ZrQtPlotSliderPrivate::drag(int x)
{
    if (isMoving())
        strip.moveBoth(x - dragOffset);
    else if (leftDragging)
        strip.moveLeftEdge(x);
    else
        strip.moveRightEdge(x);
    strip.selectFromHandles();
    q->update();
    if (updateWhileDragging)
        emitSelection();
}

void ZrQtPlotSliderPrivate::showHoverCursor(int x)
{
    const auto spans = [x](const QRect &handle) { return handle.left() <= x && x <= handle.right(); };
    if (leftHandle().right() < x && x < rightHandle().left())
        q->setCursor(Qt::SizeHorCursor);
    else if (spans(leftHandle()) || spans(rightHandle()))
        q->setCursor(Qt::SplitHCursor);
    else
        q->setCursor(Qt::ArrowCursor);
    q->update();
}

/// The last thing that a handler does: the application may delete the slider in its slot.
void ZrQtPlotSliderPrivate::emitSelection()
{
    const QPointer<ZrQtPlotSlider> slider(q);
    const bool outer = m_emitting;
    // A copy, because the slave's answer replaces the selection before the next slot is called.
    const QRectF selection = strip.selection();
    m_emitting = true;
    Q_EMIT q->selectionChanged(selection, slaveCosy, true);
    if (!slider)
        return;
    m_emitting = outer;
    applyPendingMaster();
}

/// Silently: an answer to the answer of the plot would never end.
void ZrQtPlotSliderPrivate::applyPendingMaster()
{
    if (!pendingMaster || m_emitting || isDragging())
        return;
    strip.setMaster(*pendingMaster);
    pendingMaster.reset();
}

// A plot recognises the slider by its class when it becomes a child, so the parent is set when it is
// complete.
ZrQtPlotSlider::ZrQtPlotSlider(QWidget *parent)
    : m_d(new ZrQtPlotSliderPrivate(this))
{
    // Queued connections and signal spies look the type up by its name.
    qRegisterMetaType<ZrQtPlot::CoordinateSystem>();
    setMouseTracking(true);
    setParent(parent);
}

ZrQtPlotSlider::~ZrQtPlotSlider() = default;

ZrQtPlot::CoordinateSystem ZrQtPlotSlider::masterCosy() const
{
    Q_D(const ZrQtPlotSlider);
    return d->masterCosy;
}

void ZrQtPlotSlider::setMasterCosy(ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtPlotSlider);
    if (d->masterCosy == cosy)
        return;
    d->masterCosy = cosy;
    d->pendingMaster.reset(); // of the old system
    Q_EMIT masterCosyChanged(cosy);
}

ZrQtPlot::CoordinateSystem ZrQtPlotSlider::slaveCosy() const
{
    Q_D(const ZrQtPlotSlider);
    return d->slaveCosy;
}

void ZrQtPlotSlider::setSlaveCosy(ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtPlotSlider);
    if (d->slaveCosy == cosy)
        return;
    d->slaveCosy = cosy;
    Q_EMIT slaveCosyChanged(cosy);
}

bool ZrQtPlotSlider::updateWhileDragging() const
{
    Q_D(const ZrQtPlotSlider);
    return d->updateWhileDragging;
}

void ZrQtPlotSlider::setUpdateWhileDragging(bool on)
{
    Q_D(ZrQtPlotSlider);
    d->updateWhileDragging = on;
}

QColor ZrQtPlotSlider::slaveHandleColor() const
{
    Q_D(const ZrQtPlotSlider);
    return d->slaveHandleColor;
}

void ZrQtPlotSlider::setSlaveHandleColor(const QColor &color)
{
    Q_D(ZrQtPlotSlider);
    d->slaveHandleColor = color;
    d->activeHandleColor = color;
    d->activeHandleColor.setAlpha(std::min(color.alpha() + 50, 255));
    update();
}

Qt::PenStyle ZrQtPlotSlider::slaveHandlePen() const
{
    Q_D(const ZrQtPlotSlider);
    return d->handlePen.style();
}

void ZrQtPlotSlider::setSlaveHandlePen(Qt::PenStyle style)
{
    Q_D(ZrQtPlotSlider);
    d->handlePen.setStyle(style);
    update();
}

bool ZrQtPlotSlider::leftDragging() const
{
    Q_D(const ZrQtPlotSlider);
    return d->leftDragging;
}

bool ZrQtPlotSlider::rightDragging() const
{
    Q_D(const ZrQtPlotSlider);
    return d->rightDragging;
}

void ZrQtPlotSlider::onMasterCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtPlotSlider);
    if (cosy != d->masterCosy)
        return;
    if (d->m_emitting) {
        d->pendingMaster = canvas;
        return;
    }
    d->pendingMaster.reset();
    if (!d->strip.setMaster(canvas))
        return;
    if (d->updateWhileDragging && d->isDragging()) {
        d->updateLength();
        d->strip.selectFromHandles();
        d->emitSelection();
    }
}

// Also while the slider emits, since the slave may not end where the selection sent it: the handles show what
// the slave really shows. Nothing is emitted here, so that this ends the round.
void ZrQtPlotSlider::onSlaveCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtPlotSlider);
    if (cosy != d->slaveCosy)
        return;
    d->updateLength();
    d->strip.synchronise(canvas);
    update();
}

void ZrQtPlotSlider::mousePressEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlotSlider);
    d->updateLength();
    const bool onMiddle = d->middle().contains(event->pos());
    d->leftDragging = onMiddle || d->leftHandle().contains(event->pos());
    d->rightDragging = onMiddle || d->rightHandle().contains(event->pos());
    d->dragOffset = event->x() - d->strip.leftPosition();
    update();
    event->accept();
}

void ZrQtPlotSlider::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlotSlider);
    d->updateLength();
    if (d->isDragging())
        d->drag(std::clamp(event->x(), 0, width()));
    else
        d->showHoverCursor(event->x());
}

void ZrQtPlotSlider::mouseReleaseEvent(QMouseEvent *)
{
    Q_D(ZrQtPlotSlider);
    d->leftDragging = false;
    d->rightDragging = false;
    update();
    if (d->updateWhileDragging)
        d->applyPendingMaster();
    else
        d->emitSelection();
}

void ZrQtPlotSlider::leaveEvent(QEvent *)
{
    Q_D(ZrQtPlotSlider);
    d->leftDragging = false;
    d->rightDragging = false;
    d->applyPendingMaster();
    update();
}

void ZrQtPlotSlider::resizeEvent(QResizeEvent *)
{
    Q_D(ZrQtPlotSlider);
    d->strip.resize(width());
    update();
}
