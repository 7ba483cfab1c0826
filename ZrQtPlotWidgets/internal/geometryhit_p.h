#ifndef GEOMETRYHIT_P_H
#define GEOMETRYHIT_P_H

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtCore/Qt>

#include <optional>

/// What a drag moves.
enum class DragPart {
    AllItems, ///< every item of the type
    Item,     ///< one item as a whole
    FirstEnd, ///< an end of a segment
    SecondEnd,
    LeftTop, ///< a corner of a rectangle; top is the smaller y
    RightTop,
    LeftBottom,
    RightBottom,
    Top, ///< an edge of a rectangle, or of the rectangle around an ellipse
    Bottom,
    Left,
    Right,
    Outline ///< the size of an ellipse, its centre and proportions kept
};

/// What the mouse points at. Without a cursor of its own it gets that of the allowed directions.
struct GeometryHit
{
    DragPart part = DragPart::AllItems;
    int index = -1; ///< the item, unless all of them
    std::optional<Qt::CursorShape> cursor;
};

/// Where the mouse points, and what it may do with the items of one type.
struct HitRules
{
    QRectF selection;         ///< the square around the mouse, data units
    QRectF extent;            ///< the rectangle around all items of the type, whose centre moves them all
    bool editable = false;    ///< single items may be changed
    bool movable = false;     ///< all items may be moved together
    bool resizable = false;   ///< single items may be resized
    bool keepsCenter = false; ///< items are resized about their centre
    Qt::Orientations directions = Qt::Horizontal | Qt::Vertical; ///< without any no zone has a cursor
};

/// One step of a drag, in data units.
struct DragStep
{
    QPointF offset;   ///< since the last step, 0 in directions that are not allowed
    QPointF position; ///< of the mouse
    bool keepsCenter = false;
    Qt::Orientations directions = Qt::Horizontal | Qt::Vertical;
};

/// Whether `rect` holds `point` on its inside or border; false for a rectangle without width or height and
/// wherever a coordinate is not finite.
[[nodiscard]] bool holds(const QRectF &rect, const QPointF &point);

// What the mouse hits of each type of content; nothing if there is no item.
[[nodiscard]] std::optional<GeometryHit> hitPoints(const QVector<QPointF> &points, const HitRules &rules);
[[nodiscard]] std::optional<GeometryHit> hitSegments(const QVector<QLineF> &segments, const HitRules &rules);
[[nodiscard]] std::optional<GeometryHit> hitLines(const QVector<QLineF> &lines, const HitRules &rules);
[[nodiscard]] std::optional<GeometryHit> hitRectangles(const QVector<QRectF> &rectangles,
                                                       const HitRules &rules);
[[nodiscard]] std::optional<GeometryHit> hitCircles(const QVector<QRectF> &circles, const HitRules &rules);

// What one step of a drag does to the items that were hit. An item that is gone is left alone, coordinates
// stay within the supported range.
void drag(QVector<QPointF> &points, const GeometryHit &hit, const DragStep &step);
void drag(QVector<QLineF> &lines, const GeometryHit &hit, const DragStep &step);
void drag(QVector<QRectF> &rects, const GeometryHit &hit, const DragStep &step);

#endif // GEOMETRYHIT_P_H
