#include "geometryhit_p.h"

#include "coordinaterange_p.h"
#include "plotgeometry_p.h"

#include <algorithm>
#include <cmath>

namespace {

enum class ZoneTest {
    PointInSelection,  ///< a point of the rectangle lies in the selection
    CenterInRowBand,   ///< the centre of the selection lies on a horizontal edge, widened to the selection
    CenterInColumnBand ///< the same for a vertical edge
};

/// A part of a rectangle or of an ellipse that can be dragged. `x` and `y` choose the place: 0 is left or
/// top, 0.5 the middle, 1 right or bottom.
struct Zone
{
    DragPart part;
    ZoneTest test;
    double x;
    double y;
    Qt::CursorShape cursor;
};

// In the order in which they are tried. The cursors of the corners look mirrored because top is the smaller
// y, which the screen shows lower.
constexpr Zone rectangleZones[] = {
    {DragPart::LeftTop, ZoneTest::PointInSelection, 0.0, 0.0, Qt::SizeBDiagCursor},
    {DragPart::RightTop, ZoneTest::PointInSelection, 1.0, 0.0, Qt::SizeFDiagCursor},
    {DragPart::LeftBottom, ZoneTest::PointInSelection, 0.0, 1.0, Qt::SizeFDiagCursor},
    {DragPart::RightBottom, ZoneTest::PointInSelection, 1.0, 1.0, Qt::SizeBDiagCursor},
    {DragPart::Top, ZoneTest::CenterInRowBand, 0.5, 0.0, Qt::SizeVerCursor},
    {DragPart::Bottom, ZoneTest::CenterInRowBand, 0.5, 1.0, Qt::SizeVerCursor},
    {DragPart::Left, ZoneTest::CenterInColumnBand, 0.0, 0.5, Qt::SizeHorCursor},
    {DragPart::Right, ZoneTest::CenterInColumnBand, 1.0, 0.5, Qt::SizeHorCursor},
    {DragPart::Item, ZoneTest::PointInSelection, 0.5, 0.5, Qt::SizeAllCursor},
};

constexpr Zone circleZones[] = {
    {DragPart::Right, ZoneTest::PointInSelection, 1.0, 0.5, Qt::SizeHorCursor},
    {DragPart::Left, ZoneTest::PointInSelection, 0.0, 0.5, Qt::SizeHorCursor},
    {DragPart::Top, ZoneTest::PointInSelection, 0.5, 0.0, Qt::SizeVerCursor},
    {DragPart::Bottom, ZoneTest::PointInSelection, 0.5, 1.0, Qt::SizeVerCursor},
};

QPointF placeOf(const Zone &zone, const QRectF &rect)
{
    return QPointF(rect.left() + zone.x * rect.width(), rect.top() + zone.y * rect.height());
}

bool isHit(const Zone &zone, const QRectF &rect, const QRectF &selection)
{
    const QPointF place = placeOf(zone, rect);
    switch (zone.test) {
    case ZoneTest::PointInSelection:
        return holds(selection, place);
    case ZoneTest::CenterInRowBand: {
        const double height = selection.height();
        return holds(QRectF(rect.left(), place.y() - height / 2, rect.width(), height), selection.center());
    }
    case ZoneTest::CenterInColumnBand: {
        const double width = selection.width();
        return holds(QRectF(place.x() - width / 2, rect.top(), width, rect.height()), selection.center());
    }
    }
    return false;
}

/// Whether no zone of `rect`, or of the ellipse in it, can be hit. Hovering over many items takes its speed
/// from this. False wherever a coordinate is not finite.
bool isOutOfReach(const QRectF &rect, const QRectF &selection)
{
    // The ring of an ellipse is round: it reaches as far up as it is wide.
    const double size = std::max(std::abs(rect.width()), std::abs(rect.height()));
    const double reach = size / 2 + std::max(selection.width(), selection.height());
    const QPointF distance = rect.center() - selection.center();
    return std::abs(distance.x()) > reach || std::abs(distance.y()) > reach;
}

/// Whether the mouse is so far within a rectangle that neither its centre nor anything on its outline can be
/// hit. As isOutOfReach(), for items that lie around each other.
bool isAmidRectangle(const QRectF &rect, const QRectF &selection)
{
    const double reach = std::max(selection.width(), selection.height());
    const double x = std::abs(rect.center().x() - selection.center().x());
    const double y = std::abs(rect.center().y() - selection.center().y());
    return std::max(x, y) > reach && x + reach < std::abs(rect.width()) / 2
           && y + reach < std::abs(rect.height()) / 2;
}

/// The same for an ellipse, whose ring and handles lie no closer to the centre than its smaller radius.
bool isAmidEllipse(const QRectF &ellipse, const QRectF &selection)
{
    const double radius = std::min(std::abs(ellipse.width()), std::abs(ellipse.height())) / 2;
    const double reach = std::max(selection.width(), selection.height());
    const QPointF distance = ellipse.center() - selection.center();
    const double squaredDistance = QPointF::dotProduct(distance, distance);
    return radius > reach && squaredDistance > reach * reach
           && squaredDistance < (radius - reach) * (radius - reach);
}

GeometryHit zoneHit(DragPart part, int index, Qt::CursorShape cursor, const HitRules &rules)
{
    // Nothing can be dragged in no direction, so no zone promises it.
    return rules.directions ? GeometryHit{part, index, cursor} : GeometryHit{part, index, std::nullopt};
}

bool hitsAllItems(const HitRules &rules)
{
    return rules.movable && holds(rules.selection, rules.extent.center());
}

std::optional<GeometryHit> hitSegment(const QLineF &segment, int index, const HitRules &rules)
{
    if (!isFinite(segment)) // not drawn either
        return std::nullopt;
    if (rules.resizable) {
        if (holds(rules.selection, segment.p1()))
            return GeometryHit{DragPart::FirstEnd, index, std::nullopt};
        if (holds(rules.selection, segment.p2()))
            return GeometryHit{DragPart::SecondEnd, index, std::nullopt};
    }
    // Apart from the nearest point, which a selection that is far from square in data units may not hold.
    if (holds(rules.selection, segment.center())
        || holds(rules.selection, nearestOnSegment(segment, rules.selection.center()))) {
        return GeometryHit{DragPart::Item, index, std::nullopt};
    }
    return std::nullopt;
}

std::optional<GeometryHit> hitRectangle(const QRectF &rect, int index, const HitRules &rules)
{
    if (isOutOfReach(rect, rules.selection) || isAmidRectangle(rect, rules.selection))
        return std::nullopt;
    for (const Zone &zone : rectangleZones) {
        const bool isAllowed = rules.resizable || zone.part == DragPart::Item;
        if (isAllowed && isHit(zone, rect, rules.selection))
            return zoneHit(zone.part, index, zone.cursor, rules);
    }
    return std::nullopt;
}

std::optional<GeometryHit> hitCircleHandle(const QRectF &circle, int index, const HitRules &rules)
{
    if (isOutOfReach(circle, rules.selection) || isAmidEllipse(circle, rules.selection))
        return std::nullopt;
    if (holds(rules.selection, circle.center()))
        return zoneHit(DragPart::Item, index, Qt::SizeAllCursor, rules);
    // Resizing about the centre has no use for a handle that moves two edges at once.
    if (!rules.keepsCenter && holds(rules.selection, diagonalHandle(circle)))
        return zoneHit(DragPart::RightTop, index, Qt::SizeFDiagCursor, rules);
    for (const Zone &zone : circleZones) {
        if (isHit(zone, circle, rules.selection))
            return zoneHit(zone.part, index, zone.cursor, rules);
    }
    return std::nullopt;
}

/// The cursor for resizing at `mouse`, seen from the centre of a circle; none straight above or beside it.
std::optional<Qt::CursorShape> outlineCursor(const QPointF &mouse, const QPointF &center,
                                             const HitRules &rules)
{
    const double dx = mouse.x() - center.x();
    const double dy = mouse.y() - center.y();
    if (!rules.directions || dx == 0.0 || dy == 0.0)
        return std::nullopt;
    return (dx > 0.0) == (dy > 0.0) ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor;
}

std::optional<GeometryHit> hitOutline(const QRectF &circle, int index, const HitRules &rules)
{
    if (isOutOfReach(circle, rules.selection) || isAmidEllipse(circle, rules.selection))
        return std::nullopt;
    // On purpose only the widths count: the ring is round in data units, whatever the shape of the ellipse.
    const double radius = std::abs(circle.width()) / 2; // negative while turned inside out
    const double tolerance = rules.selection.width() / 2;
    const QPointF center = circle.center();
    const QPointF mouse = rules.selection.center();
    const double distance = std::hypot(mouse.x() - center.x(), mouse.y() - center.y());
    const bool onRing = radius - tolerance < distance && distance < radius + tolerance;
    if (!onRing && !holds(rules.selection, center))
        return std::nullopt;
    if (rules.resizable)
        return GeometryHit{DragPart::Outline, index, outlineCursor(mouse, center, rules)};
    return GeometryHit{DragPart::Item, index, std::nullopt};
}

/// The first item that `hitItem(item, index, rules)` reports.
template <typename Item, typename HitItem>
std::optional<GeometryHit> firstHit(const QVector<Item> &items, const HitRules &rules, HitItem hitItem)
{
    for (int i = 0; i < items.size(); ++i) {
        if (const std::optional<GeometryHit> hit = hitItem(items.at(i), i, rules))
            return hit;
    }
    return std::nullopt;
}

constexpr std::optional<GeometryHit> allItems = GeometryHit{};

QLineF translated(const QLineF &line, const QPointF &first, const QPointF &second)
{
    return clippedLine(QLineF(line.p1() + first, line.p2() + second));
}

/// Which edges a part moves, in each direction: -1 the low one, +1 the high one, 0 none.
struct MovedEdges
{
    int x = 0;
    int y = 0;
};

MovedEdges movedEdges(DragPart part)
{
    switch (part) {
    case DragPart::LeftTop:
        return {-1, -1};
    case DragPart::RightTop:
        return {1, -1};
    case DragPart::LeftBottom:
        return {-1, 1};
    case DragPart::RightBottom:
        return {1, 1};
    case DragPart::Top:
        return {0, -1};
    case DragPart::Bottom:
        return {0, 1};
    case DragPart::Left:
        return {-1, 0};
    case DragPart::Right:
        return {1, 0};
    default:
        return {};
    }
}

/// How far the low and the high edge of one direction move.
struct EdgeOffsets
{
    double low = 0.0;
    double high = 0.0;
};

EdgeOffsets edgeOffsets(int movedEdge, double offset, bool keepsCenter)
{
    const double opposite = keepsCenter ? -offset : 0.0;
    if (movedEdge < 0)
        return {offset, opposite};
    if (movedEdge > 0)
        return {opposite, offset};
    return {};
}

QRectF resized(const QRectF &rect, DragPart part, const DragStep &step)
{
    const MovedEdges edges = movedEdges(part);
    const EdgeOffsets x = edgeOffsets(edges.x, step.offset.x(), step.keepsCenter);
    const EdgeOffsets y = edgeOffsets(edges.y, step.offset.y(), step.keepsCenter);
    return clippedRect(rect.adjusted(x.low, y.low, x.high, y.high));
}

/// The outline follows the mouse. In a single direction it cannot: then the edge on the side of the mouse
/// moves, and the other one against it.
QRectF withOutlineAt(const QRectF &circle, DragStep step)
{
    if (step.directions == (Qt::Horizontal | Qt::Vertical))
        return clippedRect(ellipseThrough(step.position, circle));
    const QPointF center = circle.center();
    step.keepsCenter = true;
    if (step.directions == Qt::Horizontal)
        return resized(circle, step.position.x() < center.x() ? DragPart::Left : DragPart::Right, step);
    if (step.directions == Qt::Vertical)
        return resized(circle, step.position.y() < center.y() ? DragPart::Top : DragPart::Bottom, step);
    return circle;
}

/// Replaces the item that was hit, or all of them, by `change(item)`.
template <typename Item, typename Change>
void changeItems(QVector<Item> &items, const GeometryHit &hit, Change change)
{
    if (hit.part == DragPart::AllItems) {
        for (Item &item : items)
            item = change(item);
    } else if (hit.index >= 0 && hit.index < items.size()) {
        items[hit.index] = change(items.at(hit.index));
    }
}

} // namespace

bool holds(const QRectF &rect, const QPointF &point)
{
    // A rectangle "contains" NaN, since no comparison with its edges fails. Asked last: nearly all miss
    // before.
    return rect.contains(point) && isFinite(point) && isFinite(rect);
}

std::optional<GeometryHit> hitPoints(const QVector<QPointF> &points, const HitRules &rules)
{
    if (points.isEmpty())
        return std::nullopt;
    if (rules.editable) {
        const auto hit = firstHit(points, rules, [](const QPointF &point, int index, const HitRules &with) {
            return holds(with.selection, point)
                       ? std::make_optional(GeometryHit{DragPart::Item, index, std::nullopt})
                       : std::nullopt;
        });
        if (hit)
            return hit;
    }
    return hitsAllItems(rules) ? allItems : std::nullopt;
}

std::optional<GeometryHit> hitSegments(const QVector<QLineF> &segments, const HitRules &rules)
{
    if (segments.isEmpty())
        return std::nullopt;
    if (hitsAllItems(rules))
        return allItems;
    return rules.editable ? firstHit(segments, rules, hitSegment) : std::nullopt;
}

std::optional<GeometryHit> hitLines(const QVector<QLineF> &lines, const HitRules &rules)
{
    if (lines.isEmpty())
        return std::nullopt;
    if (rules.editable) {
        const auto hit = firstHit(lines, rules, [](const QLineF &line, int index, const HitRules &with) {
            return holds(with.selection, nearestOnLine(line, with.selection.center()))
                       ? std::make_optional(GeometryHit{DragPart::Item, index, std::nullopt})
                       : std::nullopt;
        });
        if (hit)
            return hit;
    }
    return hitsAllItems(rules) ? allItems : std::nullopt;
}

std::optional<GeometryHit> hitRectangles(const QVector<QRectF> &rectangles, const HitRules &rules)
{
    if (rectangles.isEmpty())
        return std::nullopt;
    if (hitsAllItems(rules))
        return allItems;
    if (!rules.editable)
        return std::nullopt;
    return firstHit(rectangles, rules, hitRectangle);
}

std::optional<GeometryHit> hitCircles(const QVector<QRectF> &circles, const HitRules &rules)
{
    if (circles.isEmpty())
        return std::nullopt;
    if (hitsAllItems(rules))
        return allItems;
    if (!rules.editable)
        return std::nullopt;
    // The handles of every circle come before the outline of any.
    if (rules.resizable) {
        if (const std::optional<GeometryHit> hit = firstHit(circles, rules, hitCircleHandle))
            return hit;
    }
    return firstHit(circles, rules, hitOutline);
}

void drag(QVector<QPointF> &points, const GeometryHit &hit, const DragStep &step)
{
    changeItems(points, hit, [&step](const QPointF &point) { return clippedPoint(point + step.offset); });
}

void drag(QVector<QLineF> &lines, const GeometryHit &hit, const DragStep &step)
{
    const QPointF first = hit.part == DragPart::SecondEnd ? QPointF() : step.offset;
    const QPointF second = hit.part == DragPart::FirstEnd ? QPointF() : step.offset;
    changeItems(lines, hit, [&](const QLineF &line) { return translated(line, first, second); });
}

void drag(QVector<QRectF> &rects, const GeometryHit &hit, const DragStep &step)
{
    changeItems(rects, hit, [&hit, &step](const QRectF &rect) {
        switch (hit.part) {
        case DragPart::AllItems:
        case DragPart::Item:
            return clippedRect(rect.translated(step.offset));
        case DragPart::Outline:
            return withOutlineAt(rect, step);
        default:
            return resized(rect, hit.part, step);
        }
    });
}
