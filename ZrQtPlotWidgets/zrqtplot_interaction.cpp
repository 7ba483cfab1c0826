#include "zrqtplot_p.h"

#include "internal/painterstate_p.h"
#include "internal/plotgestures_p.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

namespace {

constexpr double leastZoomBand = 5.0;

} // namespace

/// What one mode does at the three stages of a drag with the left button; a null stage does nothing.
struct ZrQtPlotPrivate::Gesture
{
    void (ZrQtPlotPrivate::*press)(const QPoint &);
    void (ZrQtPlotPrivate::*move)(const QMouseEvent &);
    void (ZrQtPlotPrivate::*release)();
};

ZrQtPlotPrivate::Gesture ZrQtPlotPrivate::gesture() const
{
    switch (interaction) {
    case ZrQtPlot::NoInteraction:
        break;
    case ZrQtPlot::PanAndScan:
        return {nullptr, &ZrQtPlotPrivate::dragCanvases, &ZrQtPlotPrivate::scaleUsed};
    case ZrQtPlot::RectangleZoom:
        return {&ZrQtPlotPrivate::beginBand, &ZrQtPlotPrivate::dragBand, &ZrQtPlotPrivate::zoomToBand};
    case ZrQtPlot::SelectRoi:
        return {&ZrQtPlotPrivate::beginBand, &ZrQtPlotPrivate::dragBand, &ZrQtPlotPrivate::reportBand};
    case ZrQtPlot::SelectLine:
        return {&ZrQtPlotPrivate::beginLine, &ZrQtPlotPrivate::dragLine, &ZrQtPlotPrivate::reportLine};
    }
    return {nullptr, nullptr, nullptr};
}

void ZrQtPlotPrivate::pan(CoordinateSystem cosy, const QPointF &delta)
{
    CosyState &record = state(cosy);
    record.canvas = PlotGestures::panned(workingCanvas(cosy), delta, m_plotRect.size(),
                                         {record.x.inverted, record.y.inverted});
    if (keepAspectRatio)
        record.effectiveCanvas = record.canvas;
    const QPointer<ZrQtPlot> plot(q);
    if (delta.x() != 0.0)
        scalePanned(cosy, ZrQtPlot::Axis_X);
    if (plot && delta.y() != 0.0)
        scalePanned(cosy, ZrQtPlot::Axis_Y);
    if (plot)
        emitCanvas(cosy);
}

void ZrQtPlotPrivate::scalePanned(CoordinateSystem cosy, PlotAxis axis)
{
    const QPointer<ZrQtPlot> plot(q);
    if (state(cosy).direction(axis).scaling != ZrQtPlot::Manual)
        setScaling(ZrQtPlot::Manual, cosy, axis, true);
    if (plot)
        applyScaling(cosy, axis);
}

void ZrQtPlotPrivate::dragCanvases(const QMouseEvent &event)
{
    m_mouseDragging = true;
    const QPointF delta = lastMousePos - event.localPos();
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        pan(cosy, delta);
        if (!plot)
            return;
    }
}

/// The canvases were announced before this, on purpose; what the scaling moves now shows with the next
/// change.
void ZrQtPlotPrivate::scaleUsed()
{
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
            applyScaling(cosy, axis);
            if (!plot)
                return;
        }
    }
}

void ZrQtPlotPrivate::beginBand(const QPoint &position)
{
    selectionStart = position;
    selectionEnd = position;
    selectionRect = QRectF(position, QSizeF(1.0, 1.0));
    selectionVisible = true;
}

void ZrQtPlotPrivate::dragBand(const QMouseEvent &event)
{
    selectionEnd = event.pos();
    selectionRect = PlotGestures::rubberBand(selectionStart, selectionEnd, m_plotRect);
    q->update();
}

/// The same rectangle of pixels for every system.
void ZrQtPlotPrivate::zoomToBand()
{
    const QRectF band = selectionRect;
    if (!(band.width() >= leastZoomBand) || !(band.height() >= leastZoomBand))
        return;
    // Once, before axes that change their width move the plot area.
    const QPointF origin = PlotGestures::bandOrigin(band, m_plotRect);
    const PlotGestures::ZoomFactors factors = PlotGestures::bandFactors(band, m_plotRect);
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
            setScaling(ZrQtPlot::Manual, cosy, axis, true);
            if (!plot)
                return;
        }
        zoom(cosy, origin, factors);
        if (!plot)
            return;
    }
}

void ZrQtPlotPrivate::reportBand()
{
    if (selectionCancelled)
        return;
    QRectF band = selectionRect;
    // A click without movement shows one pixel and reports a point.
    if (selectionStart == selectionEnd)
        band.setSize(QSizeF(0.0, 0.0));
    Q_EMIT q->selectionChanged(selectionTransform().mapRect(band.translated(-m_plotRect.topLeft())));
}

void ZrQtPlotPrivate::beginLine(const QPoint &position)
{
    selectionStart = position;
    selectionEnd = position;
    selectionLine = QLineF(position, position);
    selectionVisible = true;
}

/// A line that leaves the plot area ends at the border that the mouse left through.
void ZrQtPlotPrivate::dragLine(const QMouseEvent &event)
{
    selectionEnd = PlotGestures::lineEnd(selectionLine.p1(), event.pos(), m_plotRect);
    selectionLine.setP2(selectionEnd);
    q->update();
}

void ZrQtPlotPrivate::reportLine()
{
    if (!selectionCancelled)
        Q_EMIT q->selectionChanged(selectionTransform().map(selectionLine.translated(-m_plotRect.topLeft())));
}

/// From pixels of the plot area to the values in which selections and clicks are reported. Inverted axes do
/// not count here, on purpose.
QTransform ZrQtPlotPrivate::selectionTransform() const
{
    return PlotGestures::pixelToValue(m_plotRect.size(), workingCanvas(selectionCosyX),
                                      workingCanvas(selectionCosyY));
}

void ZrQtPlotPrivate::paintRubberBand(QPainter &painter) const
{
    if (!selectionVisible)
        return;
    const PainterState state(painter);
    QPen pen = painter.pen();
    pen.setStyle(Qt::DashLine);
    painter.setPen(pen);
    if (interaction == ZrQtPlot::SelectLine)
        painter.drawLine(selectionLine);
    else
        painter.drawRect(selectionRect);
}

/// Forgets a drag and what it shows, without a report.
void ZrQtPlotPrivate::endDrag()
{
    if (selectionVisible)
        q->update();
    pressed = false;
    m_mouseDragging = false;
    selectionVisible = false;
    selectionCancelled = false;
    selectionRect = QRectF(0.0, 0.0, 0.0, 0.0);
    // Something else, such as a menu, may have taken the mouse from an axis.
    endOrphanedHolds();
}

bool ZrQtPlotPrivate::inLegendStrip(const QPointF &position) const
{
    return generateLegend && position.y() > q->height() - m_legendHeight;
}

void ZrQtPlot::mousePressEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlot);
    d->lastMousePos = event->localPos();
    // The held buttons count, not the one that was pressed.
    if (!event->buttons().testFlag(Qt::LeftButton) || d->inLegendStrip(event->localPos())) {
        event->ignore();
        return;
    }
    d->pressed = true;
    const QPointer<ZrQtPlot> plot(this);
    if (d->tooltipMode == SHOW_ALWAYS || d->tooltipMode == SHOW_WHILE_PRESSED)
        d->showTooltip();
    // The application's hover callback may have thrown the plot away.
    if (!plot)
        return;
    if (const auto press = d->gesture().press)
        (d->*press)(event->pos());
    event->accept();
}

void ZrQtPlot::mouseMoveEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlot);
    d->checkCursorArea(event->localPos().y());
    const QPointer<ZrQtPlot> plot(this);
    if (d->pressed) {
        if (const auto move = d->gesture().move)
            (d->*move)(*event);
    }
    if (!plot)
        return;
    d->lastMousePos = event->localPos();
}

void ZrQtPlot::mouseReleaseEvent(QMouseEvent *event)
{
    Q_D(ZrQtPlot);
    const QPointer<ZrQtPlot> plot(this);
    d->pressed = false;
    // What another button ends stays pending until the left button is released.
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (d->tooltipMode == SHOW_WHILE_PRESSED)
        d->hideTooltip();
    else if (d->tooltipMode == SHOW_ON_CLICK)
        d->showTooltip();
    if (!plot)
        return;
    d->selectionRect = d->selectionRect.normalized();
    d->emitUsedCanvases();
    if (!plot)
        return;
    d->m_mouseDragging = false;
    if (const auto release = d->gesture().release)
        (d->*release)();
    // A slot of the application may have closed the window for good.
    if (!plot)
        return;
    d->endDrag();
}

void ZrQtPlot::keyPressEvent(QKeyEvent *event)
{
    Q_D(ZrQtPlot);
    const bool selecting = d->interaction == SelectRoi || d->interaction == SelectLine;
    if (!d->selectionCancelled && event->key() == Qt::Key_Escape && selecting) {
        d->selectionVisible = false;
        d->selectionCancelled = true;
        update();
    }
    QWidget::keyPressEvent(event);
}

ZrQtPlot::Interaction ZrQtPlot::interaction() const
{
    Q_D(const ZrQtPlot);
    return d->interaction;
}

void ZrQtPlot::setInteraction(Interaction interaction)
{
    Q_D(ZrQtPlot);
    if (d->interaction == interaction)
        return;
    d->interaction = interaction;
    d->applyAxisCursor();
}

ZrQtPlot::CoordinateSystem ZrQtPlot::selectionCosyX() const
{
    Q_D(const ZrQtPlot);
    return d->selectionCosyX;
}

void ZrQtPlot::setSelectionCosyX(CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->selectionCosyX = cosy;
}

ZrQtPlot::CoordinateSystem ZrQtPlot::selectionCosyY() const
{
    Q_D(const ZrQtPlot);
    return d->selectionCosyY;
}

void ZrQtPlot::setSelectionCosyY(CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->selectionCosyY = cosy;
}
