#ifndef AXISGEOMETRY_P_H
#define AXISGEOMETRY_P_H

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QSizeF>
#include <QtCore/QtGlobal>
#include <QtCore/qnamespace.h>

/// Geometry of an axis: pixels from values and sizes, without a widget.
///
/// *Along* is the direction of the scale: from left to right on a horizontal axis, from the bottom up on a
/// vertical one. *Across* is at right angles to it. All functions take any number: NaN becomes 0 and absurd
/// sizes are limited to ±LargestPixel, so that no sum of a few of them leaves the range of int.
namespace AxisGeometry {

/// The largest size that a widget can have.
constexpr int LargestPixel = (1 << 24) - 1;

[[nodiscard]] constexpr bool isVertical(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::RightEdge;
}

/// True for the two horizontal edges only; a combination of edges is neither horizontal nor vertical.
[[nodiscard]] constexpr bool isHorizontal(Qt::Edge edge)
{
    return edge == Qt::TopEdge || edge == Qt::BottomEdge;
}

/// True on the left and at the top, where ticks point to smaller pixels and the axis line comes last.
[[nodiscard]] constexpr bool isOuter(Qt::Edge edge)
{
    return edge == Qt::LeftEdge || edge == Qt::TopEdge;
}

/// The whole part of \a value, towards zero; limited to ±LargestPixel, 0 for NaN.
[[nodiscard]] int truncated(double value);

/// The way of an axis along its edge, in pixels: its length and what its margins leave free at the ends.
struct Along
{
    bool vertical = false;
    int extent = 0; ///< height of a vertical axis, width of a horizontal one
    int marginLow = 0;
    int marginHigh = 0;

    /// Pixels between the margins, less one. Negative if the margins take more than there is.
    [[nodiscard]] double length() const;
};

/// How much of the visible range lies below and above the range that is ticked, as fractions of it.
struct UntickedPart
{
    double below = 0.0;
    double above = 0.0;
};

/// The fractions that place the ticks: not limited, but 0 for a visible range of no size.
[[nodiscard]] UntickedPart untickedPart(double min, double max, double drawMin, double drawMax);

/// The fractions that place the axis line: each within 0 to 1, 0 where the division gives no number.
[[nodiscard]] UntickedPart unlinedPart(double min, double max, double drawMin, double drawMax);

/// Pixels of the two ends of the drawn part of an axis.
struct Ends
{
    int low = 0;
    int high = 0;
};

[[nodiscard]] Ends ends(const Along &along, const UntickedPart &part);

/// Maps a normalised position (0 = low end of the range, 1 = high end) to a pixel along the axis.
struct TickMapping
{
    double origin = 0.0;
    double span = 0.0;

    [[nodiscard]] double pixel(double position) const { return origin + span * position; }
};

/// On purpose an inverted axis exchanges the ends of the drawn part and does not mirror the part itself.
[[nodiscard]] TickMapping tickMapping(const Ends &ends, bool inverted);

/// What stands beside the axis line, in pixels.
struct AcrossContents
{
    int textExtent = 0;  ///< extent of the tick texts across the axis
    int labelExtent = 0; ///< extent of the axis label across the axis
    int tickSize = 0;
    int subTickSize = 0;
    int editMargin = 0;
};

/// Pixels across the axis, counted from the left or top side of the widget.
struct AcrossLayout
{
    int axisLabelPos = 0; ///< where the axis label begins
    int tickTextPos = 0;  ///< where the tick texts begin
    int axisLinePos = 0;  ///< the axis line
    int extent = 0;       ///< fixed width of a vertical, height of a horizontal axis; never negative
};

/// The layout for one of the four edges. On purpose the outer edges count the ticks alone and the inner edges
/// the longer of ticks and sub-ticks, with other gaps.
[[nodiscard]] AcrossLayout acrossLayout(Qt::Edge edge, const AcrossContents &contents);

/// The least margin at the ends of an axis: half of the extent of a tick label along it, one hundredth of the
/// length of the widget, and one pixel.
[[nodiscard]] int minimumMargin(int labelExtent, int widgetExtent);

/// Frame of an edit field around a tick text of \a textHeight.
[[nodiscard]] int editMargin(double textHeight);

/// Size of an edit field that shows a tick text of \a text, before it is turned.
[[nodiscard]] QSize editFieldSize(const QSizeF &text, int editMargin);

/// What decides on the place of an edit field.
struct EditFieldPlace
{
    Qt::Edge edge = Qt::LeftEdge;
    bool turned = false; ///< by -90 degrees, together with the tick texts of a horizontal axis
    int tickTextPos = 0;
    QSize text; ///< widest tick text, height of the font
    int editMargin = 0;
};

/// The corner of the edit field that covers the label of a tick at \a tick pixels along the axis.
[[nodiscard]] QPoint editFieldTopLeft(const EditFieldPlace &place, double tick);

} // namespace AxisGeometry

#endif // AXISGEOMETRY_P_H
