#include "zrqtbufferedchannel.h"

#include "internal/channeltransform_p.h"
#include "internal/painterstate_p.h"
#include "internal/polyline_p.h"
#include "zrqtbufferedchannel_p.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <cmath>

namespace {

// QPen prints a warning for a width outside of this range, at every paint.
constexpr int widestPen = 32767;

bool containsNaN(const QPointF &point)
{
    return std::isnan(point.x()) || std::isnan(point.y());
}

bool isBeyondSupportedRange(const QPointF &point)
{
    return std::abs(point.x()) > largestCoordinate || std::abs(point.y()) > largestCoordinate;
}

} // namespace

bool ZrQtBufferedChannelPrivate::holds(const QVector<QPointF> &otherPoints) const
{
    // NaN is equal to nothing. The comparison of vectors would overlook that where both share their data.
    return !pointsContainNaN && points == otherPoints;
}

void ZrQtBufferedChannelPrivate::store(const QVector<QPointF> &newPoints)
{
    points = newPoints;
    pointsContainNaN = false;
    for (int i = 0; i < newPoints.size(); ++i) {
        const QPointF &point = newPoints.at(i);
        if (containsNaN(point))
            pointsContainNaN = true;
        // Written only where needed, so that the vector stays shared with the caller.
        if (isBeyondSupportedRange(point))
            points[i] = clippedPoint(point);
    }
}

void ZrQtBufferedChannelPrivate::drawLine(QPainter &painter) const
{
    const QTransform snapped = withSnappedOffset(transform, canvas, q->width());
    if (!isFinite(snapped))
        return;
    const PainterState state(painter);
    painter.setWorldTransform(snapped, true);
    drawPolyline(painter, points);
}

ZrQtBufferedChannel::ZrQtBufferedChannel(QWidget *parent)
    : ZrQtBaseChannel(*new ZrQtBufferedChannelPrivate(this))
{
    setParent(parent);
    setVisible(true);
}

ZrQtBufferedChannel::~ZrQtBufferedChannel() = default;

QRectF ZrQtBufferedChannel::boundingRect()
{
    Q_D(ZrQtBufferedChannel);
    return d->boundingRect;
}

void ZrQtBufferedChannel::paint(QPainter &painter)
{
    Q_D(ZrQtBufferedChannel);
    if (!isVisible() || (d->canvas.width() <= 0.0 && width() <= 0))
        return;
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing, d->antialiasing);
    QPen pen(d->lineColor);
    pen.setWidth(qBound(0, d->lineWidth, widestPen));
    pen.setCosmetic(true);
    pen.setStyle(d->lineStyle);
    painter.setPen(pen);
    if (d->lineWidth >= 1 && d->lineStyle != Qt::NoPen)
        d->drawLine(painter);
    if (d->pointSize > 0 && d->pointStyle != PointStyle_None)
        drawPoints(painter, d->points);
}

int ZrQtBufferedChannel::channelNr() const
{
    Q_D(const ZrQtBufferedChannel);
    return d->channelNr;
}

int ZrQtBufferedChannel::reduceTo() const
{
    return width() >= 1 ? width() : 0;
}

void ZrQtBufferedChannel::setData(const QVector<double> &dataX, const QVector<double> &dataY)
{
    if (dataX.size() != dataY.size()) {
        qWarning("dataX and dataY have different sizes");
        return;
    }
    QVector<QPointF> points;
    points.reserve(dataX.size());
    for (int i = 0; i < dataX.size(); ++i)
        points.append(QPointF(dataX.at(i), dataY.at(i)));
    setData(points);
}

void ZrQtBufferedChannel::setData(const QVector<double> &dataX, const QVector<double> &dataY,
                                  const QRectF &boundingRect)
{
    if (dataX.size() != dataY.size())
        return;
    Q_D(ZrQtBufferedChannel);
    if (!d->points.isDetached())
        d->points = QVector<QPointF>(); // resizing it would copy what is about to be overwritten
    d->points.resize(dataX.size());
    d->pointsContainNaN = false;
    QPointF *stored = d->points.data();
    for (int i = 0; i < dataX.size(); ++i) {
        stored[i] = clippedPoint(QPointF(dataX.at(i), dataY.at(i)));
        d->pointsContainNaN = d->pointsContainNaN || containsNaN(stored[i]);
    }
    const QPointer<ZrQtBufferedChannel> alive(this);
    setBoundingRect(boundingRect);
    if (alive)
        Q_EMIT dataChanged(d->cosyX, d->cosyY);
    if (alive)
        update();
}

void ZrQtBufferedChannel::setData(const QVector<QPointF> &points)
{
    setData(points, extentOfPoints(points));
}

void ZrQtBufferedChannel::setData(const QVector<QPointF> &points, const QRectF &boundingRect)
{
    Q_D(ZrQtBufferedChannel);
    const QPointer<ZrQtBufferedChannel> alive(this);
    const QRectF newBoundingRect = boundingRect;
    if (!d->holds(points)) {
        d->store(points);
        Q_EMIT dataChanged(d->cosyX, d->cosyY);
        if (alive)
            update();
    }
    if (alive)
        setBoundingRect(newBoundingRect);
}

void ZrQtBufferedChannel::setData(const QVector<double> &dataY, double startIdx, double step)
{
    QVector<QPointF> points;
    points.reserve(dataY.size());
    double x = startIdx;
    for (const double y : dataY) {
        points.append(QPointF(x, y));
        x += step;
    }
    setData(points);
}

void ZrQtBufferedChannel::setBoundingRect(const QRectF &boundingRect)
{
    Q_D(ZrQtBufferedChannel);
    const QRectF clipped = clippedRect(boundingRect);
    if (clipped == d->boundingRect) // fuzzy
        return;
    d->boundingRect = clipped;
    Q_EMIT boundingRectChanged(clipped);
}

void ZrQtBufferedChannel::setChannelNr(int arg)
{
    Q_D(ZrQtBufferedChannel);
    d->channelNr = arg;
}

void ZrQtBufferedChannel::clear()
{
    setData(QVector<QPointF>(), QRectF(0.0, 0.0, 0.0, 0.0));
}
