#include "strokeruns_p.h"

#include "dashes_p.h"
#include "painterstate_p.h"

#include <QtCore/QLineF>
#include <QtGui/QPainterPath>
#include <QtGui/QPen>

#include <algorithm>
#include <iterator>

namespace {

constexpr int pointsPerRun = 16;
constexpr int mostPointsPerRun = 256;
constexpr int fewPoints = 64; // whose dashes are no trouble for Qt

/// Whether the line turns back at point `i`.
bool turnsBack(const QPolygonF &line, int i)
{
    const QPointF before = line.at(i) - line.at(i - 1);
    const QPointF after = line.at(i + 1) - line.at(i);
    return QPointF::dotProduct(before, after) < 0.0;
}

/// The end of the run that starts at point `begin`. With antialiasing a joint shows where the line goes
/// straight on, but not at a tip.
int endOfRun(const QPolygonF &line, int begin, bool antialiased)
{
    const int last = line.size() - 1;
    int end = std::min(begin + pointsPerRun, last);
    const int farthest = std::min(begin + mostPointsPerRun, last);
    while (antialiased && end < farthest && !turnsBack(line, end))
        ++end;
    return end;
}

/// `end` moved away from `neighbour` by `length`.
QPointF extended(const QPointF &end, const QPointF &neighbour, double length)
{
    const QLineF way(neighbour, end);
    return end + QPointF(way.dx(), way.dy()) * (length / way.length());
}

/// The points that differ from the one before them, but two in any case. Qt gives a line of length 0 no cap
/// and no joint.
QPolygonF withoutRepetitions(const QPolygonF &line)
{
    QPolygonF points;
    points.reserve(line.size());
    std::unique_copy(line.cbegin(), line.cend(), std::back_inserter(points));
    if (points.size() == 1)
        points.append(points.constFirst());
    return points;
}

} // namespace

void strokeInRuns(QPainter &painter, const QPolygonF &line)
{
    QPolygonF extendedLine = withoutRepetitions(line);
    if (extendedLine.size() <= pointsPerRun) {
        painter.drawPolyline(extendedLine);
        return;
    }
    const PainterState state(painter);
    const bool antialiased = painter.testRenderHint(QPainter::Antialiasing);
    QPen pen = painter.pen();
    // The ends of the runs must not stick out; those of the line are extended by hand.
    const double cap = pen.capStyle() == Qt::FlatCap ? 0.0 : pen.widthF() / 2;
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    const int last = extendedLine.size() - 1;
    extendedLine.first() = extended(extendedLine.at(0), extendedLine.at(1), cap);
    extendedLine.last() = extended(extendedLine.at(last), extendedLine.at(last - 1), cap);
    for (int begin = 0; begin < last;) {
        const int end = endOfRun(extendedLine, begin, antialiased);
        // The segment before is drawn once more, so that the corner between the runs is a joint and no notch.
        const int from = std::max(0, begin - 1);
        painter.drawPolyline(extendedLine.constData() + from, end - from + 1);
        begin = end;
    }
}

void strokeDashes(QPainter &painter, const QPolygonF &line, const QRectF &box)
{
    if (line.size() <= fewPoints) {
        painter.drawPolyline(line);
        return;
    }
    const PainterState state(painter);
    QPen pen = painter.pen();
    const QVector<QPolygonF> dashes = dashesWithin(line, pen, box);
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    QPainterPath path;
    for (const QPolygonF &dash : dashes) {
        path.addPolygon(dash);
        if (path.elementCount() >= pointsPerRun) {
            painter.drawPath(path);
            path.clear();
        }
    }
    painter.drawPath(path);
}
