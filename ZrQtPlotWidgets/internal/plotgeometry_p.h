#ifndef PLOTGEOMETRY_P_H
#define PLOTGEOMETRY_P_H

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>

// Shapes in data units. Top is the smaller y, as everywhere in the data of a plot.

[[nodiscard]] bool isFinite(const QPointF &point);
[[nodiscard]] bool isFinite(const QLineF &line);
[[nodiscard]] bool isFinite(const QRectF &rect);

/// The infinite `line` between the two of its crossings with the borders of `canvas`, extended likewise, that
/// are nearest to the centre of the canvas. A null line if it crosses none.
[[nodiscard]] QLineF extendedToBorder(const QLineF &line, const QRectF &canvas);

/// All `lines`, extended to the border of `canvas`. Lines that are not finite are left out.
[[nodiscard]] QVector<QLineF> extendedToBorder(const QVector<QLineF> &lines, const QRectF &canvas);

/// The extent of all `lines`; null without lines. Lines that are not finite are left out.
[[nodiscard]] QRectF boundingRectangle(const QVector<QLineF> &lines);

/// The union of all `rects`; null without rectangles. Rectangles that are not finite are left out.
[[nodiscard]] QRectF boundingRectangle(const QVector<QRectF> &rects);

/// The point of the segment from line.p1() to line.p2() that is nearest to `point`.
[[nodiscard]] QPointF nearestOnSegment(const QLineF &line, const QPointF &point);

/// The point of the infinite line through line.p1() and line.p2() that is nearest to `point`; not finite if
/// both are the same.
[[nodiscard]] QPointF nearestOnLine(const QLineF &line, const QPointF &point);

[[nodiscard]] QPointF leftMiddle(const QRectF &rect);
[[nodiscard]] QPointF rightMiddle(const QRectF &rect);
[[nodiscard]] QPointF topMiddle(const QRectF &rect);
[[nodiscard]] QPointF bottomMiddle(const QRectF &rect);

/// The handle between the right and the top one of an ellipse. On purpose at half the *width* from the
/// centre, so it lies on the outline of circles only.
[[nodiscard]] QPointF diagonalHandle(const QRectF &ellipse);

/// The ellipse with the centre and proportions of `ellipse` that passes through `point`; `ellipse` itself
/// where there is none.
[[nodiscard]] QRectF ellipseThrough(const QPointF &point, const QRectF &ellipse);

#endif // PLOTGEOMETRY_P_H
