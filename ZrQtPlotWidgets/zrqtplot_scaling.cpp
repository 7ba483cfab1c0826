#include "zrqtplot_p.h"

#include "zrqtbasechannel.h"

#include <QtCore/QMetaEnum>

#include <algorithm>
#include <iterator>

using CanvasScaling::Extent;

namespace {

CanvasScaling::AspectAnchor anchorFor(ZrQtPlot::ScalingMode mode)
{
    switch (mode) {
    case ZrQtPlot::KeepAtHead:
        return CanvasScaling::AspectAnchor::End;
    case ZrQtPlot::Manual:
    case ZrQtPlot::AutoFit:
    case ZrQtPlot::Centered:
        return CanvasScaling::AspectAnchor::Centre;
    case ZrQtPlot::Custom:
        break;
    }
    return CanvasScaling::AspectAnchor::Start;
}

} // namespace

/// The record of \a cosy, created on first use. The reference does not survive a signal: a slot of the
/// application may create further records.
CosyState &ZrQtPlotPrivate::state(CoordinateSystem cosy)
{
    return m_cosys[cosy];
}

QVector<ZrQtPlot::CoordinateSystem> ZrQtPlotPrivate::declaredSystems() const
{
    QVector<CoordinateSystem> systems;
    const int count = QMetaEnum::fromType<CoordinateSystem>().keyCount();
    for (int i = 0; i < count; ++i)
        systems.append(static_cast<CoordinateSystem>(1 << i));
    return systems;
}

/// All systems that have a record, in a fixed order.
QVector<ZrQtPlot::CoordinateSystem> ZrQtPlotPrivate::recordedSystems() const
{
    QVector<CoordinateSystem> systems;
    systems.reserve(m_cosys.size());
    std::copy(m_cosys.keyBegin(), m_cosys.keyEnd(), std::back_inserter(systems));
    std::sort(systems.begin(), systems.end());
    return systems;
}

/// The systems of the registered channels, each once, in the order of registration.
QVector<ZrQtPlot::CoordinateSystem> ZrQtPlotPrivate::usedSystems() const
{
    QVector<CoordinateSystem> systems;
    for (const ZrQtBaseChannel *channel : m_channels) {
        for (CoordinateSystem cosy : {channel->cosyX(), channel->cosyY()}) {
            if (!systems.contains(cosy))
                systems.append(cosy);
        }
    }
    return systems;
}

QRectF ZrQtPlotPrivate::workingCanvas(CoordinateSystem cosy) const
{
    const CosyState record = m_cosys.value(cosy);
    return keepAspectRatio ? record.effectiveCanvas : record.canvas;
}

void ZrQtPlotPrivate::emitCanvas(CoordinateSystem cosy)
{
    CosyState &record = state(cosy);
    adjustToAspectRatio(record);
    // A copy: the record may move while receivers run.
    Q_EMIT q->canvasChanged(QRectF(record.effectiveCanvas), cosy);
}

void ZrQtPlotPrivate::adjustToAspectRatio(CosyState &record) const
{
    record.effectiveCanvas = record.canvas;
    if (!keepAspectRatio || q->width() < 1 || q->height() < 1)
        return;
    record.effectiveCanvas = CanvasScaling::withAspectRatio(
        record.canvas, m_plotRect.size(), anchorFor(record.x.scaling), anchorFor(record.y.scaling));
}

void ZrQtPlotPrivate::emitUsedCanvases()
{
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        emitCanvas(cosy);
        if (!plot)
            return;
    }
}

/// Moves the canvas of \a cosy as its mode asks. The mode is read after the automatic return to the previous
/// one, on purpose: a canvas that is set to `Manual` while it still shows the data as fitted is fitted again
/// at once.
void ZrQtPlotPrivate::applyScaling(CoordinateSystem cosy, PlotAxis axis)
{
    const QPointer<ZrQtPlot> plot(q);
    returnToPreviousMode(cosy, axis);
    if (plot)
        scale(cosy, axis);
}

void ZrQtPlotPrivate::returnToPreviousMode(CoordinateSystem cosy, PlotAxis axis)
{
    CosyState &record = state(cosy);
    const CosyState::Direction &direction = record.direction(axis);
    if (m_mouseDragging || direction.hold || direction.scaling == direction.previousScaling)
        return;

    const Extent canvas = CanvasScaling::extentOf(record.canvas, toDirection(axis));
    const Extent data = CanvasScaling::extentOf(record.boundingRect, toDirection(axis));
    bool returns = false;
    if (direction.previousScaling == ZrQtPlot::AutoFit) {
        // The width of the plot area serves both directions.
        returns = CanvasScaling::edgesNear(data, canvas, static_cast<int>(m_plotRect.width()));
    } else if (direction.previousScaling == ZrQtPlot::KeepAtHead) {
        const Extent last = CanvasScaling::extentOf(record.lastBoundingRect, toDirection(axis));
        returns = canvas.high >= last.high && data.high >= canvas.high;
    }
    if (returns)
        setScaling(direction.previousScaling, cosy, axis, false);
}

void ZrQtPlotPrivate::scale(CoordinateSystem cosy, PlotAxis axis)
{
    CosyState &record = state(cosy);
    const CanvasScaling::Direction direction = toDirection(axis);
    const Extent data = CanvasScaling::extentOf(record.boundingRect, direction);
    switch (record.direction(axis).scaling) {
    case ZrQtPlot::AutoFit: {
        // The smallest y is at the bottom of the screen.
        const double marginLow = axis == ZrQtPlot::Axis_X ? canvasMarginLeft : canvasMarginBottom;
        const double marginHigh = axis == ZrQtPlot::Axis_X ? canvasMarginRight : canvasMarginTop;
        record.canvas = CanvasScaling::withExtent(record.canvas, direction,
                                                  CanvasScaling::fitted(data, marginLow, marginHigh));
        break;
    }
    case ZrQtPlot::Centered:
        record.canvas = CanvasScaling::centred(record.canvas, direction, record.boundingRect);
        break;
    case ZrQtPlot::KeepAtHead: {
        const bool hold = axis == ZrQtPlot::Axis_X || m_mouseDragging ? record.x.hold : record.y.hold;
        const bool ahead = CanvasScaling::extentOf(record.canvas, direction).high > data.high;
        if (ahead || !hold)
            record.canvas = CanvasScaling::atHead(record.canvas, direction, record.boundingRect);
        break;
    }
    case ZrQtPlot::Manual:
    case ZrQtPlot::Custom:
        break;
    }
}

void ZrQtPlotPrivate::setScaling(ScalingMode mode, CoordinateSystem cosy, PlotAxis axis, bool apply)
{
    CosyState::Direction &direction = state(cosy).direction(axis);
    direction.previousScaling = direction.scaling;
    direction.scaling = mode;
    const QPointer<ZrQtPlot> plot(q);
    if (apply)
        applyScaling(cosy, axis);
    if (apply && plot)
        emitCanvas(cosy);
    if (plot)
        Q_EMIT q->scalingModeChanged(mode, axis, cosy);
}

/// Switches a direction to `Manual` without fitting anything.
void ZrQtPlotPrivate::becomeManual(CoordinateSystem cosy, PlotAxis axis)
{
    CosyState::Direction &direction = state(cosy).direction(axis);
    if (direction.scaling == ZrQtPlot::Manual)
        return;
    direction.previousScaling = direction.scaling;
    direction.scaling = ZrQtPlot::Manual;
    Q_EMIT q->scalingModeChanged(ZrQtPlot::Manual, axis, cosy);
}

/// Switches a direction to `AutoFit` and fits it, without a look at the previous mode.
void ZrQtPlotPrivate::returnToAutoFit(CoordinateSystem cosy, PlotAxis axis)
{
    CosyState::Direction &direction = state(cosy).direction(axis);
    direction.previousScaling = direction.scaling;
    direction.scaling = ZrQtPlot::AutoFit;
    scale(cosy, axis);
    const QPointer<ZrQtPlot> plot(q);
    emitCanvas(cosy);
    if (plot)
        Q_EMIT q->scalingModeChanged(ZrQtPlot::AutoFit, axis, cosy);
}

/// The part of setCanvas() that concerns one direction; reports whether the canvas changed.
bool ZrQtPlotPrivate::setCanvasPart(const QRectF &rect, CoordinateSystem cosy, PlotAxis axis)
{
    const CanvasScaling::Direction direction = toDirection(axis);
    const double low = CanvasScaling::extentOf(rect, direction).low;
    const double size = CanvasScaling::sizeOf(rect, direction);
    const QRectF old = state(cosy).canvas;
    if (!(size > 0.0)
        || (low == CanvasScaling::extentOf(old, direction).low
            && size == CanvasScaling::sizeOf(old, direction)))
        return false;

    const QPointer<ZrQtPlot> plot(q);
    becomeManual(cosy, axis);
    if (!plot)
        return false;
    QRectF &canvas = state(cosy).canvas;
    canvas = axis == ZrQtPlot::Axis_X ? QRectF(low, canvas.y(), size, canvas.height())
                                      : QRectF(canvas.x(), low, canvas.width(), size);
    applyScaling(cosy, axis);
    return true;
}

/// Moves one edge of the canvas; the old canvas is announced before the new one.
void ZrQtPlotPrivate::setCanvasEdge(double Extent::*edge, double value, CoordinateSystem cosy, PlotAxis axis)
{
    const QPointer<ZrQtPlot> plot(q);
    setScaling(ZrQtPlot::Manual, cosy, axis, true);
    if (!plot)
        return;
    QRectF &canvas = state(cosy).canvas;
    Extent extent = CanvasScaling::extentOf(canvas, toDirection(axis));
    extent.*edge = value;
    canvas = CanvasScaling::withExtent(canvas, toDirection(axis), extent);
    emitCanvas(cosy);
}

void ZrQtPlotPrivate::setDefaultScaling(ScalingMode &stored, ScalingMode mode, PlotAxis axis)
{
    if (stored == mode)
        return;
    stored = mode;
    applyDefaultScaling(axis);
}

void ZrQtPlotPrivate::applyDefaultScaling(PlotAxis axis)
{
    const ScalingMode mode = axis == ZrQtPlot::Axis_X ? defaultScalingX : defaultScalingY;
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = declaredSystems();
    for (CoordinateSystem cosy : systems) {
        CosyState::Direction &direction = state(cosy).direction(axis);
        direction.previousScaling = mode;
        direction.scaling = mode;
        Q_EMIT q->scalingModeChanged(mode, axis, cosy);
        if (!plot)
            return;
    }
    q->update();
}

void ZrQtPlotPrivate::resetCanvases()
{
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = declaredSystems();
    for (CoordinateSystem cosy : systems) {
        CosyState &record = state(cosy);
        record.canvas = initialCanvas;
        record.effectiveCanvas = initialCanvas;
        for (CosyState::Direction *direction : {&record.x, &record.y}) {
            direction->hold = false;
            direction->minChannel = nullptr;
            direction->maxChannel = nullptr;
            direction->fitted = false;
        }
        Q_EMIT q->canvasChanged(QRectF(initialCanvas), cosy);
        if (!plot)
            return;
    }
    q->update();
}

/// Fits anew only where the extent of the data changed since, on purpose: a margin alone moves no canvas.
void ZrQtPlotPrivate::setCanvasMargin(double &stored, double margin, PlotAxis axis)
{
    if (stored == margin)
        return;
    stored = margin;
    const QPointer<ZrQtPlot> plot(q);
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        refit(cosy, axis);
        if (!plot)
            return;
    }
    q->update();
}

QRectF ZrQtPlot::canvas(CoordinateSystem cosy) const
{
    Q_D(const ZrQtPlot);
    return d->m_cosys.value(cosy).canvas;
}

void ZrQtPlot::setCanvas(const QRectF &canvas, CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    // A copy, and guarded: slots run in between.
    const QRectF rect = canvas;
    const QPointer<ZrQtPlot> plot(this);
    const bool changedX = d->setCanvasPart(rect, cosy, Axis_X);
    if (!plot)
        return;
    const bool changedY = d->setCanvasPart(rect, cosy, Axis_Y);
    if (!plot)
        return;
    if (changedX || changedY)
        d->emitUsedCanvases();
}

void ZrQtPlot::setMinX(double minimum, CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->setCanvasEdge(&Extent::low, minimum, cosy, Axis_X);
}

void ZrQtPlot::setMaxX(double maximum, CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->setCanvasEdge(&Extent::high, maximum, cosy, Axis_X);
}

void ZrQtPlot::setMinY(double minimum, CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->setCanvasEdge(&Extent::low, minimum, cosy, Axis_Y);
}

void ZrQtPlot::setMaxY(double maximum, CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    d->setCanvasEdge(&Extent::high, maximum, cosy, Axis_Y);
}

ZrQtPlot::ScalingMode ZrQtPlot::scalingX(CoordinateSystem cosy) const
{
    return m_d->state(cosy).x.scaling;
}

ZrQtPlot::ScalingMode ZrQtPlot::scalingY(CoordinateSystem cosy) const
{
    return m_d->state(cosy).y.scaling;
}

void ZrQtPlot::setScalingX(ScalingMode mode, CoordinateSystem cosy, bool apply)
{
    Q_D(ZrQtPlot);
    d->setScaling(mode, cosy, Axis_X, apply);
}

void ZrQtPlot::setScalingY(ScalingMode mode, CoordinateSystem cosy, bool apply)
{
    Q_D(ZrQtPlot);
    d->setScaling(mode, cosy, Axis_Y, apply);
}

void ZrQtPlot::setScaling(ScalingMode mode, CoordinateSystem cosy)
{
    const QPointer<ZrQtPlot> plot(this);
    setScalingX(mode, cosy, true);
    if (plot)
        setScalingY(mode, cosy, true);
}

ZrQtPlot::ScalingMode ZrQtPlot::defaultScalingX() const
{
    Q_D(const ZrQtPlot);
    return d->defaultScalingX;
}

void ZrQtPlot::setDefaultScalingX(ScalingMode mode)
{
    Q_D(ZrQtPlot);
    d->setDefaultScaling(d->defaultScalingX, mode, Axis_X);
}

ZrQtPlot::ScalingMode ZrQtPlot::defaultScalingY() const
{
    Q_D(const ZrQtPlot);
    return d->defaultScalingY;
}

void ZrQtPlot::setDefaultScalingY(ScalingMode mode)
{
    Q_D(ZrQtPlot);
    d->setDefaultScaling(d->defaultScalingY, mode, Axis_Y);
}

double ZrQtPlot::canvasMarginLeft() const
{
    Q_D(const ZrQtPlot);
    return d->canvasMarginLeft;
}

void ZrQtPlot::setCanvasMarginLeft(double margin)
{
    Q_D(ZrQtPlot);
    d->setCanvasMargin(d->canvasMarginLeft, margin, Axis_X);
}

double ZrQtPlot::canvasMarginRight() const
{
    Q_D(const ZrQtPlot);
    return d->canvasMarginRight;
}

void ZrQtPlot::setCanvasMarginRight(double margin)
{
    Q_D(ZrQtPlot);
    d->setCanvasMargin(d->canvasMarginRight, margin, Axis_X);
}

double ZrQtPlot::canvasMarginTop() const
{
    Q_D(const ZrQtPlot);
    return d->canvasMarginTop;
}

void ZrQtPlot::setCanvasMarginTop(double margin)
{
    Q_D(ZrQtPlot);
    d->setCanvasMargin(d->canvasMarginTop, margin, Axis_Y);
}

double ZrQtPlot::canvasMarginBottom() const
{
    Q_D(const ZrQtPlot);
    return d->canvasMarginBottom;
}

void ZrQtPlot::setCanvasMarginBottom(double margin)
{
    Q_D(ZrQtPlot);
    d->setCanvasMargin(d->canvasMarginBottom, margin, Axis_Y);
}

bool ZrQtPlot::keepAspectRatio() const
{
    Q_D(const ZrQtPlot);
    return d->keepAspectRatio;
}

void ZrQtPlot::setKeepAspectRatio(bool keep)
{
    Q_D(ZrQtPlot);
    if (d->keepAspectRatio == keep)
        return;
    d->keepAspectRatio = keep;
    d->emitUsedCanvases();
}

QRectF ZrQtPlot::initialCanvas() const
{
    Q_D(const ZrQtPlot);
    return d->initialCanvas;
}

void ZrQtPlot::setInitialCanvas(const QRectF &canvas)
{
    Q_D(ZrQtPlot);
    if (CanvasScaling::isSame(d->initialCanvas, canvas))
        return;
    d->initialCanvas = canvas;
    d->resetCanvases();
}

void ZrQtPlot::setInitialCanvasWidth(double width)
{
    Q_D(ZrQtPlot);
    if (d->initialCanvasWidth < 0.0)
        d->initialCanvasWidth = width;
}

void ZrQtPlot::setCanvasToInitialWidth(CoordinateSystem cosy)
{
    Q_D(ZrQtPlot);
    if (d->initialCanvasWidth > 0.0)
        d->state(cosy).canvas.setWidth(d->initialCanvasWidth);
}
