#ifndef PLOTGESTURES_P_H
#define PLOTGESTURES_P_H

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtGui/QTransform>

/// Arithmetic of the mouse gestures: pixels and canvases in, canvases and rubber bands out. Pixels count from
/// the top left corner of the widget, y downwards; canvases are in data units, y upwards.
namespace PlotGestures {

/// The directions that an axis shows high-to-low.
struct Inversion
{
    bool x = false;
    bool y = false;
};

/// A factor for each direction; 1 leaves the direction alone.
struct ZoomFactors
{
    double x = 1.0;
    double y = 1.0;
};

/// Maps pixels that count from the corner of the plot area to values, x by the canvas of one system and y by
/// that of another. Inversion does not count.
[[nodiscard]] QTransform pixelToValue(const QSizeF &plotSize, const QRectF &canvasX, const QRectF &canvasY);

/// The value at \a pixel as an observer reads it from the axes, inverted or not.
[[nodiscard]] QPointF valueOnAxes(const QPointF &pixel, const QRectF &plotArea, const QRectF &canvasX,
                                  const QRectF &canvasY, Inversion inversion);

/// \a canvas moved along with the mouse, where \a delta is its previous minus its present position.
[[nodiscard]] QRectF panned(const QRectF &canvas, const QPointF &delta, const QSizeF &plotSize,
                            Inversion inversion);

/// \a canvas with its size multiplied by \a factors and its low corner moved to the fraction \a origin of its
/// old size. A collapsed canvas opens to a tenth of the data's size (\a dataSize), at least 0.1, when zooming
/// out.
[[nodiscard]] QRectF zoomed(const QRectF &canvas, const QPointF &origin, ZoomFactors factors,
                            const QSizeF &dataSize);

/// Fractions and factors that zoom to the rectangle \a band of the plot area.
[[nodiscard]] QPointF bandOrigin(const QRectF &band, const QRectF &plotArea);
[[nodiscard]] ZoomFactors bandFactors(const QRectF &band, const QRectF &plotArea);

/// Origin that keeps the value at \a pixel where it is while the canvas is scaled by \a factors.
[[nodiscard]] QPointF fixedPointOrigin(const QPointF &pixel, const QRectF &plotArea, ZoomFactors factors);

/// The rubber band between two corners, cut at the plot area. A band without width (height) keeps that width.
[[nodiscard]] QRectF rubberBand(const QPointF &start, const QPointF &end, const QRectF &plotArea);

/// Where a line from \a start to \a end leaves the plot area, in whole pixels; \a end itself if it lies
/// inside or if the line misses the area.
[[nodiscard]] QPoint lineEnd(const QPointF &start, const QPoint &end, const QRectF &plotArea);

} // namespace PlotGestures

#endif // PLOTGESTURES_P_H
