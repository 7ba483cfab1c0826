#ifndef CANVASSCALING_P_H
#define CANVASSCALING_P_H

#include <QtCore/QRectF>
#include <QtCore/QSizeF>

/// Arithmetic of canvases: rectangles in data units whose top is the smallest y. Nothing here knows a widget
/// or a signal; non-finite input gives non-finite or unchanged output, never a trap.
namespace CanvasScaling {

enum class Direction { X, Y };

/// The two edges of a rectangle in one direction: left and right, or top and bottom.
struct Extent
{
    double low = 0.0;
    double high = 0.0;

    double size() const { return high - low; }
};

/// What happens to a canvas in one direction when its shape is adjusted to the aspect ratio of the plot area.
enum class AspectAnchor {
    Start,  ///< the low edge stays
    Centre, ///< the centre stays
    End     ///< both edges stay where they were
};

// Inline: a fit asks them of every channel, and each channel that is added asks for a fit.
[[nodiscard]] inline Extent extentOf(const QRectF &rect, Direction direction)
{
    return direction == Direction::X ? Extent{rect.left(), rect.right()} : Extent{rect.top(), rect.bottom()};
}

[[nodiscard]] inline double sizeOf(const QRectF &rect, Direction direction)
{
    return direction == Direction::X ? rect.width() : rect.height();
}

/// Compares exactly, where QRectF's own comparison is fuzzy: at times of the present in milliseconds, that
/// takes a pan by a pixel for none.
[[nodiscard]] bool isSame(const QRectF &a, const QRectF &b);

/// \a rect with new edges in one direction. Position and size are written, not the edges: QRectF::setLeft()
/// and its siblings compute from the old edges and never recover from a NaN.
[[nodiscard]] QRectF withExtent(const QRectF &rect, Direction direction, Extent extent);
/// \a rect moved in one direction so that its low edge becomes \a low; size kept.
[[nodiscard]] QRectF movedTo(const QRectF &rect, Direction direction, double low);

/// Range that shows \a data with free space beside it; the margins are fractions of the result.
[[nodiscard]] Extent fitted(Extent data, double marginLow, double marginHigh);

/// \a canvas moved so that its centre is that of \a data.
[[nodiscard]] QRectF centred(const QRectF &canvas, Direction direction, const QRectF &data);

/// \a canvas moved to the end of \a data, or to its start if the canvas is the larger one.
[[nodiscard]] QRectF atHead(const QRectF &canvas, Direction direction, const QRectF &data);

/// Whether both edges of \a data lie within 10 pixels of those of \a canvas, with \a pixels as the size of
/// the plot area. False for a canvas of size 0.
[[nodiscard]] bool edgesNear(Extent data, Extent canvas, int pixels);

/// \a canvas enlarged in one direction so that its ratio of width to height is that of \a plotSize. An
/// invalid canvas, or one whose ratio is the same to 12 digits, is returned as it is.
[[nodiscard]] QRectF withAspectRatio(const QRectF &canvas, const QSizeF &plotSize, AspectAnchor anchorX,
                                     AspectAnchor anchorY);

} // namespace CanvasScaling

#endif // CANVASSCALING_P_H
