#include "strokeruns_p.h"

#include "painterstate_p.h"

#include <QtCore/QLineF>
#include <QtGui/QPen>

#include <algorithm>

namespace {

constexpr int pointsPerRun = 16;
constexpr int mostPointsPerRun = 256;

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
    return way.length() > 0.0 ? end + QPointF(way.dx(), way.dy()) * (length / way.length()) : end;
}

} // namespace

bool isOpaqueAndSolid(const QPainter &painter)
{
    const QPen &pen = painter.pen();
    const bool replaces = painter.compositionMode() == QPainter::CompositionMode_SourceOver
                          || painter.compositionMode() == QPainter::CompositionMode_Source;
    return pen.style() == Qt::SolidLine && pen.brush().isOpaque() && replaces && painter.opacity() >= 1.0;
}

void strokeInRuns(QPainter &painter, const QPolygonF &line)
{
    if (line.size() <= pointsPerRun) {
        painter.drawPolyline(line);
        return;
    }
    const PainterState state(painter);
    const bool antialiased = painter.testRenderHint(QPainter::Antialiasing);
    QPen pen = painter.pen();
    // The ends of the runs must not stick out; those of the line are extended by hand.
    const double cap = pen.capStyle() == Qt::FlatCap ? 0.0 : pen.widthF() / 2;
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    QPolygonF extendedLine = line;
    extendedLine.first() = extended(line.at(0), line.at(1), cap);
    extendedLine.last() = extended(line.constLast(), line.at(line.size() - 2), cap);
    const int last = line.size() - 1;
    for (int begin = 0; begin < last;) {
        const int end = endOfRun(extendedLine, begin, antialiased);
        // The segment before is drawn once more, so that the corner between the runs is a joint and no notch.
        const int from = std::max(0, begin - 1);
        painter.drawPolyline(extendedLine.constData() + from, end - from + 1);
        begin = end;
    }
}
