#include "zrqtplot_p.h"

#include "internal/plotgestures_p.h"
#include "zrqtaxis.h"

#include <QtGui/QWheelEvent>

using PlotGestures::ZoomFactors;

namespace {

constexpr double zoomInFactor = 0.85;
constexpr double zoomOutFactor = 1.15;

/// One step for each event, whatever its size. A wheel that turns sideways only zooms in.
double wheelFactor(const QWheelEvent &event)
{
    return event.angleDelta().y() < 0 ? zoomOutFactor : zoomInFactor;
}

} // namespace

/// Scales the canvas of \a cosy. Directions that change become `Manual`; the mode is written directly, so
/// that nothing is fitted in between.
void ZrQtPlotPrivate::zoom(CoordinateSystem cosy, const QPointF &origin, ZoomFactors factors)
{
    const QPointer<ZrQtPlot> plot(q);
    if (factors.x != 1.0)
        becomeManual(cosy, ZrQtPlot::Axis_X);
    if (plot && factors.y != 1.0)
        becomeManual(cosy, ZrQtPlot::Axis_Y);
    if (!plot)
        return;

    CosyState &record = state(cosy);
    record.canvas = PlotGestures::zoomed(workingCanvas(cosy), origin, factors, record.boundingRect.size());
    if (keepAspectRatio) {
        adjustToAspectRatio(record);
        record.canvas = record.effectiveCanvas;
    }
    // y first, on purpose.
    if (factors.y != 1.0)
        applyScaling(cosy, ZrQtPlot::Axis_Y);
    if (plot && factors.x != 1.0)
        applyScaling(cosy, ZrQtPlot::Axis_X);
    if (plot)
        emitCanvas(cosy);
}

/// A wheel over an axis zooms its system alone. With a fixed aspect ratio the other direction is scaled from
/// its low edge.
void ZrQtPlotPrivate::wheelOnAxis(ZrQtAxis *axis, const QWheelEvent &event)
{
    if (!mouseWheelZoom)
        return;
    const double factor = wheelFactor(event);
    const double other = keepAspectRatio ? factor : 1.0;
    const bool isX = directionOf(axis->position()) == ZrQtPlot::Axis_X;
    // The position counts in pixels of the axis, which spans the whole plot along its length.
    const QPointF fixed = PlotGestures::fixedPointOrigin(event.position(), m_plotRect, {factor, factor});
    if (isX)
        zoom(axis->cosy(), {fixed.x(), 0.0}, {factor, other});
    else
        zoom(axis->cosy(), {0.0, fixed.y()}, {other, factor});
}

void ZrQtPlot::wheelEvent(QWheelEvent *event)
{
    Q_D(ZrQtPlot);
    // Accepted only where it zooms, so that a plot in a scroll area does not zoom and scroll at once.
    event->ignore();
    if (!d->mouseWheelZoom || !d->m_plotRect.contains(event->position()))
        return;
    const double factor = wheelFactor(*event);
    const ZoomFactors factors{d->zoomAxes.testFlag(Axis_X) ? factor : 1.0,
                              d->zoomAxes.testFlag(Axis_Y) ? factor : 1.0};
    const QPointF origin = PlotGestures::fixedPointOrigin(event->position(), d->m_plotRect, factors);
    const QVector<CoordinateSystem> systems = d->usedSystems();
    event->setAccepted(d->zoomAxes && !systems.isEmpty());
    const QPointer<ZrQtPlot> plot(this);
    for (CoordinateSystem cosy : systems) {
        d->zoom(cosy, origin, factors);
        if (!plot)
            return;
    }
}

bool ZrQtPlot::mouseWheelZoom() const
{
    Q_D(const ZrQtPlot);
    return d->mouseWheelZoom;
}

void ZrQtPlot::setMouseWheelZoom(bool zoom)
{
    Q_D(ZrQtPlot);
    d->mouseWheelZoom = zoom;
}

ZrQtPlot::PlotAxes ZrQtPlot::zoomAxes() const
{
    Q_D(const ZrQtPlot);
    return d->zoomAxes;
}

void ZrQtPlot::setZoomAxes(PlotAxes axes)
{
    Q_D(ZrQtPlot);
    d->zoomAxes = axes;
}
