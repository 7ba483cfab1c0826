#ifndef POINTMARKERS_P_H
#define POINTMARKERS_P_H

#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QTransform>

class QPainter;

/// Shapes of point markers. The values are those of ZrQtBaseChannel::PointStyle.
enum class MarkerShape { None = 0, Rectangle = 1, Circle = 2, Cross = 3, DiagonalCross = 4 };

/// How and where markers are drawn. Markers have a constant size in pixels.
struct MarkerStyle
{
    MarkerShape shape = MarkerShape::None;
    int size = 0; ///< pixels: across for the filled shapes, to each side of the point for the crosses
    QColor color;
    QTransform toPixel; ///< data units to pixels
    QRectF canvas;      ///< the data range that filled markers are limited to
};

/// Draws a marker on each of `points` (data units) and leaves the painter as it was. The crosses take the
/// width of the painter's pen.
///
/// On purpose the shapes differ: rectangles and circles are `size` pixels across and left out beyond the
/// canvas, crosses reach `size` pixels to each side and are never left out.
void drawPointMarkers(QPainter &painter, const QVector<QPointF> &points, const MarkerStyle &style);

#endif // POINTMARKERS_P_H
