#ifndef POLYLINE_P_H
#define POLYLINE_P_H

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

class QPainter;

/// Draws one polyline through all of `points` with the painter's pen and transform, in one call. Nothing is
/// left out or reduced.
///
/// The one exception keeps a program responsive: Qt's stroker goes through a line dash by dash if the pen is
/// dashed and wider than a pixel, and never ends on coordinates such as 1e300. Such a line is drawn in the
/// pieces that come near the screen.
void drawPolyline(QPainter &painter, const QVector<QPointF> &points);

/// Whether Qt would never end stroking a shape with these `corners` with the painter's pen and transform.
[[nodiscard]] bool isTooLongForDashes(const QPainter &painter, const QPointF *corners, int count);

/// The runs of `points` whose segments come within `box`, cut off at its border. Segments with a coordinate
/// that is not finite are left out.
[[nodiscard]] QVector<QPolygonF> polylineWithin(const QVector<QPointF> &points, const QRectF &box);

#endif // POLYLINE_P_H
