#include "plotgeometry_p.h"

#include <QtCore/QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

double distance(const QPointF &from, const QPointF &to)
{
    return std::hypot(to.x() - from.x(), to.y() - from.y());
}

double dotProduct(const QPointF &a, const QPointF &b)
{
    return a.x() * b.x() + a.y() * b.y();
}

/// A vector of length one along `line`, also where the length of the line overflows.
QPointF direction(const QLineF &line)
{
    const double largest = std::max(std::abs(line.dx()), std::abs(line.dy()));
    const QPointF scaled(line.dx() / largest, line.dy() / largest);
    return scaled / std::hypot(scaled.x(), scaled.y());
}

} // namespace

bool isFinite(const QPointF &point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool isFinite(const QLineF &line)
{
    return isFinite(line.p1()) && isFinite(line.p2());
}

bool isFinite(const QRectF &rect)
{
    return isFinite(rect.topLeft()) && isFinite(rect.bottomRight());
}

QLineF extendedToBorder(const QLineF &line, const QRectF &canvas)
{
    const QLineF borders[]
        = {QLineF(canvas.topLeft(), canvas.bottomLeft()), QLineF(canvas.topRight(), canvas.bottomRight()),
           QLineF(canvas.topLeft(), canvas.topRight()), QLineF(canvas.bottomLeft(), canvas.bottomRight())};
    struct Crossing
    {
        QPointF point;
        double distance = 0.0;
    };
    QVarLengthArray<Crossing, 4> crossings;
    for (const QLineF &border : borders) {
        QPointF point;
        if (line.intersects(border, &point) != QLineF::NoIntersection && isFinite(point))
            crossings.append({point, distance(point, canvas.center())});
    }
    if (crossings.size() < 2)
        return QLineF();
    std::stable_sort(crossings.begin(), crossings.end(),
                     [](const Crossing &a, const Crossing &b) { return a.distance < b.distance; });
    return QLineF(crossings[0].point, crossings[1].point);
}

QVector<QLineF> extendedToBorder(const QVector<QLineF> &lines, const QRectF &canvas)
{
    QVector<QLineF> extended;
    extended.reserve(lines.size());
    for (const QLineF &line : lines) {
        if (isFinite(line))
            extended.append(extendedToBorder(line, canvas));
    }
    return extended;
}

QRectF boundingRectangle(const QVector<QLineF> &lines)
{
    double left = std::numeric_limits<double>::max();
    double top = left;
    double right = -left;
    double bottom = -left;
    for (const QLineF &line : lines) {
        if (!isFinite(line))
            continue;
        left = std::min({left, line.x1(), line.x2()});
        right = std::max({right, line.x1(), line.x2()});
        top = std::min({top, line.y1(), line.y2()});
        bottom = std::max({bottom, line.y1(), line.y2()});
    }
    return left <= right ? QRectF(QPointF(left, top), QPointF(right, bottom)) : QRectF();
}

QRectF boundingRectangle(const QVector<QRectF> &rects)
{
    QRectF all;
    for (const QRectF &rect : rects) {
        if (isFinite(rect))
            all = all.united(rect);
    }
    return all;
}

QPointF nearestOnSegment(const QLineF &line, const QPointF &point)
{
    if (line.p1() == line.p2())
        return line.p1();
    const QPointF along = direction(line);
    if (dotProduct(point - line.p1(), along) <= 0.0)
        return line.p1();
    if (dotProduct(point - line.p2(), along) >= 0.0)
        return line.p2();
    return nearestOnLine(line, point);
}

QPointF nearestOnLine(const QLineF &line, const QPointF &point)
{
    // From the point across to the line: going along a very long line would lose all digits.
    const QPointF along = direction(line);
    const QPointF across(-along.y(), along.x());
    return point - across * dotProduct(point - line.p1(), across);
}

QPointF leftMiddle(const QRectF &rect)
{
    return QPointF(rect.left(), rect.center().y());
}

QPointF rightMiddle(const QRectF &rect)
{
    return QPointF(rect.right(), rect.center().y());
}

QPointF topMiddle(const QRectF &rect)
{
    return QPointF(rect.center().x(), rect.top());
}

QPointF bottomMiddle(const QRectF &rect)
{
    return QPointF(rect.center().x(), rect.bottom());
}

QPointF diagonalHandle(const QRectF &ellipse)
{
    QLineF radius(ellipse.center(), rightMiddle(ellipse));
    radius.setAngle(45.0);
    return radius.p2();
}

QRectF ellipseThrough(const QPointF &point, const QRectF &ellipse)
{
    const QPointF center = ellipse.center();
    const double scale = std::hypot((point.x() - center.x()) / (ellipse.width() / 2),
                                    (point.y() - center.y()) / (ellipse.height() / 2));
    if (!std::isfinite(scale) || !(scale > 0.0))
        return ellipse;
    QRectF scaled(QPointF(), ellipse.size() * scale);
    scaled.moveCenter(center);
    return scaled;
}
