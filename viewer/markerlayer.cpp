#include "markerlayer.h"

#include "palette.h"

#include <QtCore/QEvent>

#include <ZrQtPlotWidgets/zrqtaxis.h>
#include <ZrQtPlotWidgets/zrqtplot.h>
#include <ZrQtPlotWidgets/zrqtplotchannel.h>

namespace {

constexpr int kFillAlpha = 28;

QColor translucent(QColor color)
{
    color.setAlpha(kFillAlpha);
    return color;
}

} // namespace

MarkerLayer::MarkerLayer(ZrQtPlot *plot, const Options &options)
    : QObject(plot)
    , m_plot(plot)
    , m_logY(options.logY)
    , m_invertedY(options.invertedY)
    , m_tags(markerColor())
    , m_region(addChannel())
    , m_circle(addChannel())
    , m_lines(addChannel())
{
    m_region->setFillColor(translucent(markerColor()));
    m_circle->setFillColor(translucent(markerColor()));
    m_lines->setMovementDirections(Qt::Horizontal);
    m_lines->setCustomFeature(&m_tags);

    connect(m_lines, &ZrQtPlotChannel::linesEdited, this, &MarkerLayer::onLinesDragged);
    connect(m_region, &ZrQtPlotChannel::rectanglesEdited, this,
            [this](const QVector<QRectF> &rectangles) { onDragged(&Markers::region, rectangles.first()); });
    connect(m_circle, &ZrQtPlotChannel::circlesEdited, this,
            [this](const QVector<QRectF> &circles) { onDragged(&Markers::circle, circles.first()); });
    connect(plot, &ZrQtPlot::canvasChanged, this, [this](const QRectF &, ZrQtPlot::CoordinateSystem cosy) {
        if (cosy == ZrQtPlot::COSY_0)
            refresh();
    });
    m_lines->installEventFilter(this);
}

ZrQtPlotChannel *MarkerLayer::addChannel()
{
    auto *channel = new ZrQtPlotChannel(m_plot);
    channel->setUseForScaling(false);
    channel->setShowInLegend(false);
    channel->setLineColor(markerColor());
    channel->setLineWidth(1);
    channel->setEditable(true);
    // Markers are taken by what is drawn of them; there are no further handles in between.
    channel->setPointsMovable(false);
    channel->setLinesMovable(false);
    channel->setLineSegmentsMovable(false);
    channel->setRectanglesMovable(false);
    channel->setCirclesMovable(false);
    channel->setEditingNotification(ZrQtPlotChannel::NotifyAlways);
    // In pixels, it neither follows a canvas nor turns over with an axis.
    disconnect(m_plot, &ZrQtPlot::canvasChanged, channel, &ZrQtBaseChannel::onCanvasChanged);
    for (ZrQtAxis *axis : m_plot->findChildren<ZrQtAxis *>())
        disconnect(axis, &ZrQtAxis::axisInverted, channel, &ZrQtBaseChannel::onAxisInverted);
    channel->onAxisInverted(ZrQtPlot::Axis_Y, channel->cosyY(), false);
    // Whatever happened to the plot during a drag, in the end the marker stands where its values are.
    connect(channel, &ZrQtPlotChannel::editingActiveChanged, this, [this](bool active) {
        if (!active)
            refresh();
    });
    return channel;
}

void MarkerLayer::setMarkers(const Markers &markers)
{
    m_markers = markers;
    refresh();
    Q_EMIT moved();
}

MarkerScale MarkerLayer::scale() const
{
    return {m_plot->canvas(ZrQtPlot::COSY_0), m_lines->size(), m_logY, m_invertedY};
}

bool MarkerLayer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        refresh();
    return QObject::eventFilter(watched, event);
}

void MarkerLayer::refresh()
{
    const MarkerScale where = scale();
    // A plot without a size or a canvas has no place for a marker.
    m_placed = where.isValid() ? m_markers : Markers();
    const QRectF pixels(QPointF(), where.area);
    if (where.isValid()) {
        for (ZrQtPlotChannel *channel : {m_region, m_circle, m_lines})
            channel->setCanvas(pixels);
    }

    QVector<QLineF> lines;
    for (const double x : qAsConst(m_placed.lines)) {
        const double pixel = where.toPixelX(x);
        lines.append(QLineF(pixel, 0.0, pixel, pixels.height()));
    }
    const auto inPixels = [&where](const std::optional<ValueWindow> &window) {
        return window ? QVector<QRectF>{where.toPixels(*window)} : QVector<QRectF>();
    };
    m_lines->setLines(lines);
    m_region->setRectangles(inPixels(m_placed.region));
    m_circle->setCircles(inPixels(m_placed.circle));
}

void MarkerLayer::onLinesDragged(const QVector<QLineF> &lines)
{
    const MarkerScale where = scale();
    for (int i = 0; i < qMin(lines.size(), m_placed.lines.size()); ++i)
        m_markers.lines[i] = where.fromPixelX(lines[i].x1(), {m_placed.lines[i]});
    Q_EMIT moved();
}

void MarkerLayer::onDragged(std::optional<ValueWindow> Markers::*marker, const QRectF &pixels)
{
    if (!(m_placed.*marker))
        return;
    m_markers.*marker = scale().fromPixels(pixels, m_placed.*marker);
    Q_EMIT moved();
}
