#include "zrqtbasechannel.h"

#include "internal/channeltransform_p.h"
#include "internal/pointmarkers_p.h"
#include "zrqtbasechannel_p.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>

static_assert(static_cast<int>(MarkerShape::None) == ZrQtBaseChannel::PointStyle_None);
static_assert(static_cast<int>(MarkerShape::Rectangle) == ZrQtBaseChannel::PointStyle_Rectangle);
static_assert(static_cast<int>(MarkerShape::Circle) == ZrQtBaseChannel::PointStyle_Circle);
static_assert(static_cast<int>(MarkerShape::Cross) == ZrQtBaseChannel::PointStyle_Cross);
static_assert(static_cast<int>(MarkerShape::DiagonalCross) == ZrQtBaseChannel::PointStyle_X);

QRectF ZrQtBaseChannelPrivate::extent() const
{
    return subclassMissing ? QRectF() : q->boundingRect();
}

ZrQtBaseChannel::ZrQtBaseChannel(QWidget *parent)
    : ZrQtBaseChannel(*new ZrQtBaseChannelPrivate(this))
{
    // The parent may be a plot that registers this channel here, before there is a boundingRect() to call.
    m_d->subclassMissing = true;
    setParent(parent);
    m_d->subclassMissing = false;
}

ZrQtBaseChannel::ZrQtBaseChannel(ZrQtBaseChannelPrivate &d)
    : QWidget(nullptr)
    , m_d(&d)
{
    // By name, for queued connections and spies: moc does not do that for the enums of another class.
    qRegisterMetaType<ZrQtPlot::CoordinateSystem>();
    qRegisterMetaType<ZrQtPlot::PlotAxis>();
}

ZrQtBaseChannel::~ZrQtBaseChannel() = default;

void ZrQtBaseChannel::updateTransform()
{
    Q_D(ZrQtBaseChannel);
    d->transform = channelTransform(d->canvas, size(), {d->xInverted, d->yInverted});
    update();
}

QString ZrQtBaseChannel::name() const
{
    Q_D(const ZrQtBaseChannel);
    return d->name;
}

void ZrQtBaseChannel::setName(const QString &name)
{
    Q_D(ZrQtBaseChannel);
    d->name = name;
}

QRectF ZrQtBaseChannel::canvas() const
{
    Q_D(const ZrQtBaseChannel);
    return d->canvas;
}

void ZrQtBaseChannel::setCanvas(const QRectF &canvas)
{
    Q_D(ZrQtBaseChannel);
    // Compared exactly, where QRectF's own comparison is fuzzy: zooming far in changes the last digits only.
    if (d->canvas.width() == canvas.width() && d->canvas.left() == canvas.left()
        && d->canvas.top() == canvas.top() && d->canvas.height() == canvas.height()) {
        return;
    }
    const QRectF newCanvas = canvas;
    d->canvas = newCanvas;
    updateTransform();
    Q_EMIT canvasChanged(newCanvas);
}

ZrQtPlot::CoordinateSystem ZrQtBaseChannel::cosyX() const
{
    Q_D(const ZrQtBaseChannel);
    return d->cosyX;
}

void ZrQtBaseChannel::setCosyX(ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtBaseChannel);
    if (d->cosyX == cosy)
        return;
    d->cosyX = cosy;
    Q_EMIT cosyXChanged(cosy);
}

ZrQtPlot::CoordinateSystem ZrQtBaseChannel::cosyY() const
{
    Q_D(const ZrQtBaseChannel);
    return d->cosyY;
}

void ZrQtBaseChannel::setCosyY(ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtBaseChannel);
    if (d->cosyY == cosy)
        return;
    d->cosyY = cosy;
    Q_EMIT cosyYChanged(cosy);
}

ZrQtPlot::CoordinateSystem ZrQtBaseChannel::cosy(ZrQtPlot::PlotAxis axis) const
{
    Q_D(const ZrQtBaseChannel);
    return axis == ZrQtPlot::Axis_X ? d->cosyX : d->cosyY;
}

Qt::PenStyle ZrQtBaseChannel::lineStyle() const
{
    Q_D(const ZrQtBaseChannel);
    return d->lineStyle;
}

void ZrQtBaseChannel::setLineStyle(Qt::PenStyle style)
{
    Q_D(ZrQtBaseChannel);
    if (d->lineStyle == style)
        return;
    d->lineStyle = style;
    update();
}

ZrQtBaseChannel::PointStyle ZrQtBaseChannel::pointStyle() const
{
    Q_D(const ZrQtBaseChannel);
    return static_cast<PointStyle>(d->pointStyle);
}

void ZrQtBaseChannel::setPointStyle(PointStyle style)
{
    Q_D(ZrQtBaseChannel);
    if (d->pointStyle == style)
        return;
    d->pointStyle = style;
    update();
}

int ZrQtBaseChannel::lineWidth() const
{
    Q_D(const ZrQtBaseChannel);
    return d->lineWidth;
}

void ZrQtBaseChannel::setLineWidth(int width)
{
    Q_D(ZrQtBaseChannel);
    if (d->lineWidth == width)
        return;
    d->lineWidth = width;
    update();
}

int ZrQtBaseChannel::pointSize() const
{
    Q_D(const ZrQtBaseChannel);
    return d->pointSize;
}

void ZrQtBaseChannel::setPointSize(int size)
{
    Q_D(ZrQtBaseChannel);
    d->pointSize = size;
}

QColor ZrQtBaseChannel::pointColor() const
{
    Q_D(const ZrQtBaseChannel);
    return d->pointColor;
}

void ZrQtBaseChannel::setPointColor(QColor color) // NOLINT(performance-unnecessary-value-param)
{
    Q_D(ZrQtBaseChannel);
    if (d->pointColor == color)
        return;
    d->pointColor = color;
    update();
}

QColor ZrQtBaseChannel::lineColor() const
{
    Q_D(const ZrQtBaseChannel);
    return d->lineColor;
}

void ZrQtBaseChannel::setLineColor(const QColor &color)
{
    Q_D(ZrQtBaseChannel);
    if (d->lineColor == color)
        return;
    d->lineColor = color;
    update();
}

QColor ZrQtBaseChannel::fillColor() const
{
    Q_D(const ZrQtBaseChannel);
    return d->fillColor;
}

void ZrQtBaseChannel::setFillColor(const QColor &color)
{
    Q_D(ZrQtBaseChannel);
    if (d->fillColor == color)
        return;
    d->fillColor = color;
    update();
}

Qt::BrushStyle ZrQtBaseChannel::fillStyle() const
{
    Q_D(const ZrQtBaseChannel);
    return d->fillStyle;
}

void ZrQtBaseChannel::setFillStyle(Qt::BrushStyle style)
{
    Q_D(ZrQtBaseChannel);
    if (d->fillStyle == style)
        return;
    d->fillStyle = style;
    update();
}

bool ZrQtBaseChannel::antialiasing() const
{
    Q_D(const ZrQtBaseChannel);
    return d->antialiasing;
}

void ZrQtBaseChannel::setAntialiasing(bool antialiasing)
{
    Q_D(ZrQtBaseChannel);
    if (d->antialiasing == antialiasing)
        return;
    d->antialiasing = antialiasing;
    const QPointer<ZrQtBaseChannel> alive(this);
    Q_EMIT antialiasingChanged(antialiasing);
    if (alive)
        update();
}

bool ZrQtBaseChannel::useForScaling() const
{
    Q_D(const ZrQtBaseChannel);
    return d->useForScaling;
}

void ZrQtBaseChannel::setUseForScaling(bool use)
{
    Q_D(ZrQtBaseChannel);
    d->useForScaling = use;
    Q_EMIT boundingRectChanged(d->extent());
}

bool ZrQtBaseChannel::showInLegend() const
{
    Q_D(const ZrQtBaseChannel);
    return d->showInLegend;
}

void ZrQtBaseChannel::setShowInLegend(bool show)
{
    Q_D(ZrQtBaseChannel);
    d->showInLegend = show;
}

bool ZrQtBaseChannel::isSelectedForDisplay() const
{
    Q_D(const ZrQtBaseChannel);
    return d->selectedForDisplay;
}

QPointF ZrQtBaseChannel::mapToData(const QPoint &pixel) const
{
    Q_D(const ZrQtBaseChannel);
    return inverseOf(d->transform).map(QPointF(pixel));
}

QPoint ZrQtBaseChannel::mapToPixel(const QPointF &value) const
{
    Q_D(const ZrQtBaseChannel);
    return truncatedToPoint(d->transform.map(value));
}

void ZrQtBaseChannel::setVisible(bool visible)
{
    // Every signal may delete the channel: an application may drop a channel that the user hides.
    const QPointer<ZrQtBaseChannel> alive(this);
    QWidget::setVisible(visible);
    if (!alive)
        return;
    Q_D(ZrQtBaseChannel);
    d->selectedForDisplay = visible;
    Q_EMIT visibilityChanged(visible);
    if (alive)
        Q_EMIT boundingRectChanged(d->extent());
}

void ZrQtBaseChannel::onCanvasChanged(const QRectF &canvas, ZrQtPlot::CoordinateSystem cosy)
{
    Q_D(ZrQtBaseChannel);
    const bool takesX = cosy == d->cosyX;
    const bool takesY = cosy == d->cosyY;
    if (!takesX && !takesY)
        return;
    // By position and size: moving the edges of a rectangle one by one never recovers from NaN.
    const QRectF &x = takesX ? canvas : d->canvas;
    const QRectF &y = takesY ? canvas : d->canvas;
    setCanvas(QRectF(x.left(), y.top(), x.width(), y.height()));
}

void ZrQtBaseChannel::onAxisInverted(ZrQtPlot::PlotAxis axis, ZrQtPlot::CoordinateSystem cosy, bool inverted)
{
    Q_D(ZrQtBaseChannel);
    if (axis == ZrQtPlot::Axis_X && cosy == d->cosyX)
        d->xInverted = inverted;
    else if (axis == ZrQtPlot::Axis_Y && cosy == d->cosyY)
        d->yInverted = inverted;
    updateTransform();
}

void ZrQtBaseChannel::drawPoints(QPainter &painter, const QVector<QPointF> &points)
{
    Q_D(ZrQtBaseChannel);
    drawPointMarkers(
        painter, points,
        {static_cast<MarkerShape>(d->pointStyle), d->pointSize, d->pointColor, d->transform, d->canvas});
}

void ZrQtBaseChannel::paintEvent(QPaintEvent *)
{
    Q_D(ZrQtBaseChannel);
    if (d->updatesViaPlot || d->subclassMissing)
        return;
    QPainter painter(this);
    paint(painter);
}

void ZrQtBaseChannel::resizeEvent(QResizeEvent *)
{
    Q_D(ZrQtBaseChannel);
    updateTransform();
    Q_EMIT dataChanged(d->cosyX, d->cosyY);
}

void ZrQtBaseChannel::moveEvent(QMoveEvent *)
{
    Q_D(ZrQtBaseChannel);
    updateTransform();
    Q_EMIT dataChanged(d->cosyX, d->cosyY);
}
