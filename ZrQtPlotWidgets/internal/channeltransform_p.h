#ifndef CHANNELTRANSFORM_P_H
#define CHANNELTRANSFORM_P_H

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtGui/QTransform>

/// Which axes of a channel are shown with their values growing to the left (x) or downwards (y).
struct AxisInversion
{
    bool x = false;
    bool y = false;
};

/// The mapping from data units to the pixels of a widget of `size` that shows `canvas`. Without guard: a
/// canvas of zero width or height gives infinities and NaN.
[[nodiscard]] QTransform channelTransform(const QRectF &canvas, const QSize &size, AxisInversion inverted);

/// `transform` with the horizontal offset that a series scrolling to the right of zero keeps at whole pixels,
/// so that it does not shimmer. On purpose the offset starts at the canvas's left edge also if x is inverted.
[[nodiscard]] QTransform withSnappedOffset(const QTransform &transform, const QRectF &canvas,
                                           double pixelWidth);

/// The way back from pixels to data units through the scaling and offset of `transform`. Identity where there
/// is none: where an axis is scaled by 0, or by what is not finite.
[[nodiscard]] QTransform inverseOf(const QTransform &transform);

/// Whether a painter can draw something through all elements of `transform`.
[[nodiscard]] bool isFinite(const QTransform &transform);

/// The integer part of `value`, towards zero; limited to the range of int, 0 for NaN.
[[nodiscard]] int truncatedToInt(double value);

/// Both coordinates of `point` truncated with truncatedToInt().
[[nodiscard]] QPoint truncatedToPoint(const QPointF &point);

#endif // CHANNELTRANSFORM_P_H
