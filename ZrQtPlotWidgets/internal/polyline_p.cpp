#include "polyline_p.h"

#include "deviceclip_p.h"
#include "painterstate_p.h"

#include <QtCore/QLineF>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// Pixels. Qt's dash arithmetic is exact up to here, and no screen reaches so far.
constexpr double farthestDash = 1e9;

/// The value at `at` on the way from (from, valueFrom) to (to, valueTo). Halved, because the difference of
/// the largest doubles overflows.
double interpolated(double at, double from, double to, double valueFrom, double valueTo)
{
    const double share = (at / 2 - from / 2) / (to / 2 - from / 2);
    return valueFrom * (1.0 - share) + valueTo * share;
}

/// Moves the ends of `line` that lie outside of [left, right] onto that border; false if nothing is left.
bool cutX(QLineF &line, double left, double right)
{
    const QLineF whole = line;
    const auto cut = [&whole, left, right](const QPointF &end) {
        const double x = qBound(left, end.x(), right);
        return x == end.x() ? end
                            : QPointF(x, interpolated(x, whole.x1(), whole.x2(), whole.y1(), whole.y2()));
    };
    if (std::max(whole.x1(), whole.x2()) < left || std::min(whole.x1(), whole.x2()) > right)
        return false;
    line = QLineF(cut(whole.p1()), cut(whole.p2()));
    return true;
}

QLineF transposed(const QLineF &line)
{
    return QLineF(line.y1(), line.x1(), line.y2(), line.x2());
}

std::optional<QLineF> segmentWithin(const QPointF &from, const QPointF &to, const QRectF &box)
{
    if (!std::isfinite(from.x()) || !std::isfinite(from.y()) || !std::isfinite(to.x())
        || !std::isfinite(to.y()))
        return std::nullopt;
    QLineF line(from, to);
    if (!cutX(line, box.left(), box.right()))
        return std::nullopt;
    line = transposed(line);
    if (!cutX(line, box.top(), box.bottom()))
        return std::nullopt;
    return transposed(line);
}

} // namespace

bool isTooLongForDashes(const QPainter &painter, const QPointF *corners, int count)
{
    const QPen &pen = painter.pen();
    if (pen.style() == Qt::SolidLine || pen.style() == Qt::NoPen || !(pen.widthF() > 1.0))
        return false;
    const QTransform &transform = painter.worldTransform();
    return std::any_of(corners, corners + count, [&transform](const QPointF &corner) {
        const QPointF pixel = transform.map(corner);
        return std::abs(pixel.x()) > farthestDash || std::abs(pixel.y()) > farthestDash;
    });
}

void drawPolyline(QPainter &painter, const QVector<QPointF> &points)
{
    if (!isTooLongForDashes(painter, points.constData(), points.size())) {
        const PainterState state(painter);
        clipToDevice(painter);
        painter.drawPolyline(points.constData(), points.size());
        return;
    }
    const QVector<QPointF> pixels = painter.worldTransform().map(QPolygonF(points));
    const PainterState state(painter);
    painter.setWorldTransform(QTransform());
    const QRectF nearby(QPointF(-farthestDash, -farthestDash), QPointF(farthestDash, farthestDash));
    const QVector<QPolygonF> runs = polylineWithin(pixels, nearby);
    for (const QPolygonF &run : runs)
        painter.drawPolyline(run);
}

QVector<QPolygonF> polylineWithin(const QVector<QPointF> &points, const QRectF &box)
{
    QVector<QPolygonF> runs;
    for (int i = 1; i < points.size(); ++i) {
        const std::optional<QLineF> segment = segmentWithin(points.at(i - 1), points.at(i), box);
        if (!segment)
            continue;
        if (runs.isEmpty() || runs.constLast().constLast() != segment->p1())
            runs.append(QPolygonF(QVector<QPointF>{segment->p1()}));
        runs.last().append(segment->p2());
    }
    return runs;
}
