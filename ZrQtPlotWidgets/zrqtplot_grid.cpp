#include "zrqtplot_p.h"

#include "internal/deviceclip_p.h"
#include "internal/painterstate_p.h"
#include "zrqtaxis.h"

#include <QtGui/QPainter>

#include <cmath>

namespace {

constexpr double borderClearance = 3.0;

enum class GridSource { None, Ticks, TicksAndSubTicks, PercentSteps, PixelSteps };

GridSource sourceOf(ZrQtPlot::GridMode mode)
{
    switch (mode) {
    case ZrQtPlot::NoGrid:
        break;
    case ZrQtPlot::TickGrid:
    case ZrQtPlot::TickPolarGrid:
        return GridSource::Ticks;
    case ZrQtPlot::SubTickGrid:
    case ZrQtPlot::SubTickPolarGrid:
        return GridSource::TicksAndSubTicks;
    case ZrQtPlot::PercentStepGrid:
        return GridSource::PercentSteps;
    case ZrQtPlot::PixelStepGrid:
        return GridSource::PixelSteps;
    }
    return GridSource::None;
}

bool isPolar(ZrQtPlot::GridMode mode)
{
    return mode == ZrQtPlot::TickPolarGrid || mode == ZrQtPlot::SubTickPolarGrid;
}

/// Where the data origin and the radii of a circle in data units lie on the screen.
struct ScreenCircle
{
    QPointF centre;
    double radiusX = 0.0;
    double radiusY = 0.0;
};

ScreenCircle circleThrough(double position, ZrQtPlot::PlotAxis axis, const QRectF &canvas, const QRectF &plot)
{
    const double unitsPerPixelX = canvas.width() / plot.width();
    const double unitsPerPixelY = canvas.height() / plot.height();
    const bool isX = axis == ZrQtPlot::Axis_X;
    const double radius = isX ? canvas.left() + canvas.width() * (position - plot.left()) / plot.width()
                              : canvas.top() + canvas.height() * (plot.bottom() - position) / plot.height();

    ScreenCircle circle;
    circle.radiusX = std::abs(radius / unitsPerPixelX);
    circle.radiusY = std::abs(radius / unitsPerPixelY);
    if (isX) {
        circle.centre = {radius < 0.0 ? position + circle.radiusX : position - circle.radiusX,
                         plot.top() + canvas.bottom() / unitsPerPixelY};
    } else {
        circle.centre = {plot.left() - canvas.left() / unitsPerPixelX,
                         radius > 0.0 ? position + circle.radiusY : position - circle.radiusY};
    }
    return circle;
}

bool isFinite(const ScreenCircle &circle)
{
    return std::isfinite(circle.centre.x()) && std::isfinite(circle.centre.y())
           && std::isfinite(circle.radiusX) && std::isfinite(circle.radiusY);
}

} // namespace

void ZrQtPlotPrivate::paintGrid(QPainter &painter)
{
    const PainterState saved(painter);
    clipToDevice(painter);
    for (PlotAxis axis : {ZrQtPlot::Axis_X, ZrQtPlot::Axis_Y}) {
        const GridLines lines = gridLines(axis);
        painter.setPen(QPen(Qt::lightGray, 1.0, gridStyle));
        for (const GridLine &line : lines.sub)
            paintGridLine(painter, line, axis);
        painter.setPen(QPen(Qt::darkGray, 1.0, gridStyle));
        for (const GridLine &line : lines.main)
            paintGridLine(painter, line, axis);
    }
}

ZrQtPlotPrivate::GridLines ZrQtPlotPrivate::gridLines(PlotAxis axis) const
{
    const bool isX = axis == ZrQtPlot::Axis_X;
    const GridPositions::Range range = isX ? GridPositions::Range{m_plotRect.left(), m_plotRect.right()}
                                           : GridPositions::Range{m_plotRect.top(), m_plotRect.bottom()};
    const double spacing = isX ? gridSpacing.width() : gridSpacing.height();
    const double subSpacing = isX ? gridSubSpacing.width() : gridSubSpacing.height();

    switch (sourceOf(isX ? gridModeX : gridModeY)) {
    case GridSource::None:
        break;
    case GridSource::Ticks:
        return {tickLines(axis), {}};
    case GridSource::TicksAndSubTicks:
        return {tickLines(axis), subTickLines(axis)};
    case GridSource::PercentSteps:
        return stepLines(GridPositions::percentSteps(range, spacing, subSpacing));
    case GridSource::PixelSteps:
        return stepLines(GridPositions::pixelSteps(range, spacing, subSpacing));
    }
    return {};
}

QVector<ZrQtAxis *> ZrQtPlotPrivate::gridAxes(PlotAxis axis) const
{
    QVector<ZrQtAxis *> axes;
    for (ZrQtAxis *candidate : m_axes) {
        if (candidate->useForGrid() && directionOf(candidate->position()) == axis)
            axes.append(candidate);
    }
    return axes;
}

QVector<ZrQtPlotPrivate::GridLine> ZrQtPlotPrivate::tickLines(PlotAxis axis) const
{
    QVector<GridLine> lines;
    const QVector<ZrQtAxis *> axes = gridAxes(axis);
    for (const ZrQtAxis *source : axes) {
        const QVector<double> positions = source->tickPositions();
        for (double position : positions)
            lines.append({position, source->cosy()});
    }
    return lines;
}

/// The sub-ticks of the last axis alone: those of several axes would fill the plot.
QVector<ZrQtPlotPrivate::GridLine> ZrQtPlotPrivate::subTickLines(PlotAxis axis) const
{
    QVector<GridLine> lines;
    const QVector<ZrQtAxis *> axes = gridAxes(axis);
    if (axes.isEmpty())
        return lines;
    const QVector<double> positions = axes.constLast()->subTickPositions();
    for (double position : positions)
        lines.append({position, axes.constLast()->cosy()});
    return lines;
}

ZrQtPlotPrivate::GridLines ZrQtPlotPrivate::stepLines(const GridPositions::Lines &positions) const
{
    GridLines lines;
    for (double position : positions.main)
        lines.main.append({position, ZrQtPlot::COSY_0});
    for (double position : positions.sub)
        lines.sub.append({position, ZrQtPlot::COSY_0});
    return lines;
}

void ZrQtPlotPrivate::paintGridLine(QPainter &painter, const GridLine &line, PlotAxis axis) const
{
    // The x mode decides for both directions.
    if (isPolar(gridModeX)) {
        paintPolarGridLine(painter, line, axis);
        return;
    }
    const bool isX = axis == ZrQtPlot::Axis_X;
    const double first = isX ? m_plotRect.left() : m_plotRect.top();
    const double last = isX ? m_plotRect.right() : m_plotRect.bottom();
    const double position = line.position;
    const bool atBorder
        = std::abs(position - first) < borderClearance || std::abs(last - position) < borderClearance;
    if (atBorder && !drawBorderGridLines)
        return;
    painter.drawLine(isX ? QLineF(position, m_plotRect.top(), position, m_plotRect.bottom())
                         : QLineF(m_plotRect.left(), position, m_plotRect.right(), position));
}

/// A circle around the data origin through the position, which is an ellipse on the screen.
void ZrQtPlotPrivate::paintPolarGridLine(QPainter &painter, const GridLine &line, PlotAxis axis) const
{
    const QRectF canvas = workingCanvas(line.cosy);
    if (m_plotRect.width() == 0.0 || m_plotRect.height() == 0.0 || canvas.width() == 0.0
        || canvas.height() == 0.0)
        return;
    const ScreenCircle circle = circleThrough(line.position, axis, canvas, m_plotRect);
    if (!isFinite(circle))
        return;

    const bool wasClipped = painter.hasClipping();
    const QRegion previousClip = painter.clipRegion();
    painter.setClipRect(m_plotRect);
    painter.drawEllipse(circle.centre, circle.radiusX, circle.radiusY);
    painter.setClipRegion(previousClip);
    painter.setClipping(wasClipped);
}

ZrQtPlot::GridMode ZrQtPlot::gridModeX() const
{
    Q_D(const ZrQtPlot);
    return d->gridModeX;
}

void ZrQtPlot::setGridModeX(GridMode mode)
{
    Q_D(ZrQtPlot);
    d->gridModeX = mode;
    update();
}

ZrQtPlot::GridMode ZrQtPlot::gridModeY() const
{
    Q_D(const ZrQtPlot);
    return d->gridModeY;
}

void ZrQtPlot::setGridModeY(GridMode mode)
{
    Q_D(ZrQtPlot);
    d->gridModeY = mode;
    update();
}

QSizeF ZrQtPlot::gridSpacing() const
{
    Q_D(const ZrQtPlot);
    return d->gridSpacing;
}

void ZrQtPlot::setGridSpacing(const QSizeF &spacing)
{
    Q_D(ZrQtPlot);
    d->gridSpacing = spacing;
    update();
}

QSizeF ZrQtPlot::gridSubSpacing() const
{
    Q_D(const ZrQtPlot);
    return d->gridSubSpacing;
}

void ZrQtPlot::setGridSubSpacing(const QSizeF &spacing)
{
    Q_D(ZrQtPlot);
    d->gridSubSpacing = spacing;
    update();
}

Qt::PenStyle ZrQtPlot::gridStyle() const
{
    Q_D(const ZrQtPlot);
    return d->gridStyle;
}

void ZrQtPlot::setGridStyle(Qt::PenStyle style)
{
    Q_D(ZrQtPlot);
    d->gridStyle = style;
    update();
}

bool ZrQtPlot::drawBorderGridLines() const
{
    Q_D(const ZrQtPlot);
    return d->drawBorderGridLines;
}

void ZrQtPlot::setDrawBorderGridLines(bool draw)
{
    Q_D(ZrQtPlot);
    if (d->drawBorderGridLines == draw)
        return;
    d->drawBorderGridLines = draw;
    update();
}
