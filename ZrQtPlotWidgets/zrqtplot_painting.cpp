#include "zrqtplot_p.h"

#include "zrqtbasechannel.h"

#include <QtGui/QPainter>

namespace {

/// Pixels. No screen shows more, and a widget whose margins or size are absurd must not take all memory.
constexpr QSize largestPicture(32767, 32767);

QSize truncated(const QSizeF &size)
{
    return {static_cast<int>(size.width()), static_cast<int>(size.height())};
}

QPoint truncated(const QPointF &point)
{
    return {static_cast<int>(point.x()), static_cast<int>(point.y())};
}

} // namespace

void ZrQtPlotPrivate::paintDirectly(QPainter &painter)
{
    painter.fillRect(m_plotRect, backgroundColor);
    paintFrame(painter);
    paintGrid(painter);
}

void ZrQtPlotPrivate::paintFrame(QPainter &painter) const
{
    const QPen previous = painter.pen();
    painter.setPen(QPen(QBrush(borderColor, Qt::SolidPattern), borderWidth, Qt::SolidLine, Qt::SquareCap,
                        Qt::BevelJoin));
    painter.drawRect(m_plotRect);
    painter.setPen(previous);
}

void ZrQtPlotPrivate::paintCached(QPainter &painter)
{
    const CanvasChange change = canvasChangeSincePainted();
    const bool resized = m_plotRect != m_imageRect;
    m_imageRect = m_plotRect;
    if (mayRedraw(change, resized))
        redrawImage(resized);
    painter.drawImage(truncated(m_plotRect.topLeft()), m_image);
}

/// Each system overwrites what the one before it found, on purpose: the outcome is that of the last system
/// with a canvas, unless one system changed in both ways.
ZrQtPlotPrivate::CanvasChange ZrQtPlotPrivate::canvasChangeSincePainted() const
{
    CanvasChange change;
    const QVector<CoordinateSystem> systems = usedSystems();
    for (CoordinateSystem cosy : systems) {
        const CosyState now = m_cosys.value(cosy);
        if (now.canvas.width() == 0.0 || now.canvas.height() == 0.0)
            continue;
        const CosyState painted = m_paintedCosys.value(cosy);
        change = {!CanvasScaling::isSame(now.boundingRect, painted.boundingRect),
                  !CanvasScaling::isSame(now.canvas, painted.canvas)};
        if (change.boundingRect && change.canvas)
            break;
    }
    return change;
}

bool ZrQtPlotPrivate::mayRedraw(CanvasChange change, bool resized) const
{
    const ZrQtPlot::PlotUpdateRestrictions allowed = plotUpdateRestrictions;
    return !allowed || (allowed.testFlag(ZrQtPlot::RedrawOnBoundingRectChange) && change.boundingRect)
           || (allowed.testFlag(ZrQtPlot::RedrawOnCanvasChange) && change.canvas)
           || (allowed.testFlag(ZrQtPlot::RedrawUnderMouse) && q->underMouse())
           || (allowed.testFlag(ZrQtPlot::RedrawOnDataChange) && m_dataChanged) || m_forceRedraw || resized;
}

void ZrQtPlotPrivate::redrawImage(bool resized)
{
    m_forceRedraw = false;
    m_dataChanged = false;
    const qreal pixelRatio = q->devicePixelRatioF();
    if (resized || m_image.devicePixelRatio() != pixelRatio) {
        const QSize pixels = truncated(QSizeF(truncated(m_plotRect.size())) * pixelRatio);
        m_image = QImage(pixels.boundedTo(largestPicture), QImage::Format_ARGB32_Premultiplied);
        m_image.setDevicePixelRatio(pixelRatio);
    }
    if (m_image.isNull())
        return;
    m_image.fill(backgroundColor);

    QPainter painter(&m_image);
    // Not translated, on purpose: the frame lies off by the corner of the plot area.
    paintFrame(painter);
    const QList<ZrQtBaseChannel *> channels = m_channels;
    for (ZrQtBaseChannel *channel : channels) {
        // What another one paints is code of the application, which may have deleted it.
        if (m_channels.contains(channel) && channel->isVisible())
            channel->paint(painter);
    }
    painter.translate(-m_plotRect.topLeft());
    paintGrid(painter);
    m_paintedCosys = m_cosys;
}

void ZrQtPlot::paint(QPainter *painter)
{
    Q_D(ZrQtPlot);
    if (d->controlChannelUpdatesViaPlot)
        d->paintCached(*painter);
    else
        d->paintDirectly(*painter);
}

void ZrQtPlot::paintEvent(QPaintEvent *)
{
    Q_D(ZrQtPlot);
    QPainter painter(this);
    paint(&painter);
    d->paintRubberBand(painter);
    if (d->generateLegend)
        d->paintLegend(painter);
}

void ZrQtPlot::setControlChannelUpdatesViaPlot(bool on)
{
    Q_D(ZrQtPlot);
    if (d->controlChannelUpdatesViaPlot == on)
        return;
    d->controlChannelUpdatesViaPlot = on;
    d->passUpdateControlToChannels();
    update();
}

void ZrQtPlot::setPlotUpdateRestrictions(PlotUpdateRestrictions restrictions)
{
    Q_D(ZrQtPlot);
    if (d->plotUpdateRestrictions == restrictions)
        return;
    d->plotUpdateRestrictions = restrictions;
    update();
}
