#include "zrqtbufferedchannel.h"

#include "internal/channeltransform_p.h"
#include "internal/painterstate_p.h"
#include "internal/polyline_p.h"
#include "internal/reducedmarkers_p.h"
#include "internal/reducedpolyline_p.h"
#include "zrqtbufferedchannel_p.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>

namespace {

// QPen prints a warning for a width outside of this range, at every paint.
constexpr int widestPen = 32767;

constexpr int block = 256; // points that stay in the processor's cache while they are looked at twice

} // namespace

/// Compares fuzzily, and block by block exactly before: that is nearly always enough, and needs no branches.
/// NaN is equal to nothing.
template <typename PointAt> bool ZrQtBufferedChannelPrivate::holds(int count, PointAt pointAt) const
{
    if (count != points.size())
        return false;
    const QPointF *stored = points.constData();
    for (int start = 0; start < count; start += block) {
        const int end = std::min(start + block, count);
        int same = 1; // a number and not bool: no branches
        for (int i = start; i < end; ++i) {
            const QPointF point = pointAt(i);
            same &= int(stored[i].x() == point.x()) & int(stored[i].y() == point.y());
        }
        for (int i = start; i < end && same == 0; ++i) {
            if (stored[i] != pointAt(i))
                return false;
        }
    }
    return true;
}

/// Writes over the old points where nobody else has them: fresh memory costs more than what is written to it.
/// Returns the extent of the points before they are clipped; each is read only once.
template <typename PointAt> PointExtent ZrQtBufferedChannelPrivate::fill(int count, PointAt pointAt)
{
    series.clear(); // it shares the points
    if (!points.isDetached())
        points = QVector<QPointF>(); // resizing it would copy what is about to be overwritten
    points.resize(count);
    QPointF *stored = points.data();
    PointExtent extent;
    for (int begin = 0; begin < count; begin += block) {
        const int end = std::min(begin + block, count);
        const PointExtent part = extentOfPoints(begin, end, pointAt);
        if (part.isWithinRange())
            std::generate(stored + begin, stored + end,
                          [&pointAt, i = begin]() mutable { return pointAt(i++); });
        else
            std::generate(stored + begin, stored + end,
                          [&pointAt, i = begin]() mutable { return clippedPoint(pointAt(i++)); });
        extent.include(part);
    }
    return extent;
}

/// Only points beyond the range are written, so that the vector stays shared with the caller.
void ZrQtBufferedChannelPrivate::share(const QVector<QPointF> &newPoints, const PointExtent &extent)
{
    series.clear(); // it shares the points
    points = newPoints;
    if (!extent.isWithinRange())
        std::transform(points.cbegin(), points.cend(), points.begin(), clippedPoint);
}

void ZrQtBufferedChannelPrivate::replacePoints(const QVector<QPointF> &newPoints, const PointExtent &extent,
                                               const QRectF &newBoundingRect)
{
    const QPointer<ZrQtBufferedChannel> alive(q_func());
    const QRectF rect = newBoundingRect; // may be the channel's own, which slots change
    share(newPoints, extent);
    reportPoints();
    if (alive)
        q_func()->setBoundingRect(rect);
}

/// The channel is updated first: Qt paints both twice if a plot that is a window is updated before its child.
void ZrQtBufferedChannelPrivate::reportPoints()
{
    q->update();
    Q_EMIT q->dataChanged(cosyX, cosyY);
}

void ZrQtBufferedChannelPrivate::drawLine(QPainter &painter)
{
    const QTransform snapped = withSnappedOffset(transform, canvas, q->width());
    if (!isFinite(snapped))
        return;
    const PainterState state(painter);
    painter.setWorldTransform(snapped, true);
    if (dataReduction)
        drawReducedPolyline(painter, series);
    else
        drawPolyline(painter, points);
}

void ZrQtBufferedChannelPrivate::drawMarkers(QPainter &painter)
{
    if (dataReduction) {
        drawReducedMarkers(painter, series,
                           {static_cast<MarkerShape>(pointStyle), pointSize, pointColor, transform, canvas});
    } else {
        q_func()->drawPoints(painter, points);
    }
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
    if (!painter.isActive() || !isVisible() || (d->canvas.width() <= 0.0 && width() <= 0))
        return;
    const PainterState state(painter);
    painter.setRenderHint(QPainter::Antialiasing, d->antialiasing);
    QPen pen(d->lineColor);
    pen.setWidth(qBound(0, d->lineWidth, widestPen));
    pen.setCosmetic(true);
    pen.setStyle(d->lineStyle);
    painter.setPen(pen);
    if (d->dataReduction)
        d->series.reset(d->points);
    if (d->lineWidth >= 1 && d->lineStyle != Qt::NoPen)
        d->drawLine(painter);
    if (d->pointSize > 0 && d->pointStyle != PointStyle_None)
        d->drawMarkers(painter);
}

int ZrQtBufferedChannel::channelNr() const
{
    Q_D(const ZrQtBufferedChannel);
    return d->channelNr;
}

bool ZrQtBufferedChannel::dataReduction() const
{
    Q_D(const ZrQtBufferedChannel);
    return d->dataReduction;
}

void ZrQtBufferedChannel::setDataReduction(bool on)
{
    Q_D(ZrQtBufferedChannel);
    if (d->dataReduction == on)
        return;
    d->dataReduction = on;
    d->series.clear();
    const QPointer<ZrQtBufferedChannel> alive(this);
    Q_EMIT dataReductionChanged(on);
    if (alive)
        update();
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
    const auto pointAt
        = [x = dataX.constData(), y = dataY.constData()](int i) { return QPointF(x[i], y[i]); };
    Q_D(ZrQtBufferedChannel);
    if (d->holds(dataX.size(), pointAt)) {
        setBoundingRect(extentOfPoints(0, dataX.size(), pointAt).rect());
        return;
    }
    const QPointer<ZrQtBufferedChannel> alive(this);
    const QRectF extent = d->fill(dataX.size(), pointAt).rect();
    d->reportPoints();
    if (alive)
        setBoundingRect(extent);
}

void ZrQtBufferedChannel::setData(const QVector<double> &dataX, const QVector<double> &dataY,
                                  const QRectF &boundingRect)
{
    if (dataX.size() != dataY.size())
        return;
    Q_D(ZrQtBufferedChannel);
    d->fill(dataX.size(),
            [x = dataX.constData(), y = dataY.constData()](int i) { return QPointF(x[i], y[i]); });
    const QPointer<ZrQtBufferedChannel> alive(this);
    update(); // before the rectangle makes the plot update itself, see reportPoints()
    setBoundingRect(boundingRect);
    if (alive)
        d->reportPoints();
}

void ZrQtBufferedChannel::setData(const QVector<QPointF> &points)
{
    Q_D(ZrQtBufferedChannel);
    const PointExtent extent = extentOfPoints(points);
    if (d->holds(points.size(), [&points](int i) { return points.at(i); }))
        setBoundingRect(extent.rect());
    else
        d->replacePoints(points, extent, extent.rect());
}

void ZrQtBufferedChannel::setData(const QVector<QPointF> &points, const QRectF &boundingRect)
{
    Q_D(ZrQtBufferedChannel);
    if (d->holds(points.size(), [&points](int i) { return points.at(i); }))
        setBoundingRect(boundingRect);
    else
        d->replacePoints(points, extentOfPoints(points), boundingRect);
}

void ZrQtBufferedChannel::setData(const QVector<double> &dataY, double startIdx, double step)
{
    QVector<QPointF> points(dataY.size());
    QPointF *point = points.data();
    double x = startIdx;
    for (const double y : dataY) {
        *point++ = QPointF(x, y);
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
