#ifndef SLIDERARITHMETIC_P_H
#define SLIDERARITHMETIC_P_H

#include <QtCore/QRectF>

/// The arithmetic of an overview strip: two handles on a row of pixels that mark a range of the values which
/// the strip spans. It knows numbers only; events, colours and signals belong to the slider.
///
/// Positions are pixels, 0 to length(): the left position is the left side of the left handle, the right
/// position the right side of the right handle. Of the master canvas and of the selection only the horizontal
/// extent counts, in data units of the master; value = master.left + master.width · pixel / length.
///
/// Without a master canvas that spans a usable range (width greater than 0, edges finite) pixels and values
/// have nothing to do with each other: the handles then move without a change of the selection, and the
/// selection changes without moving them. On a strip of no width the handles do not move at all.
class SliderStrip
{
public:
    /// Width of a handle in pixels.
    static constexpr int HandleWidth = 8;
    /// Smallest distance between the outer sides of the handles: both of them and one pixel between.
    static constexpr int MinimumSpan = 2 * HandleWidth + 1;

    /// A strip of \a length pixels with the handles at its ends and neither master canvas nor selection.
    explicit SliderStrip(int length = 0);

    int length() const { return m_length; }
    int leftPosition() const { return m_left; }
    int rightPosition() const { return m_right; }
    QRectF master() const { return m_master; }
    QRectF selection() const { return m_selection; }

    /// The value at \a pixel; only meaningful while hasScale().
    [[nodiscard]] double valueAt(int pixel) const;

    /// True if pixels can be translated into values and back.
    [[nodiscard]] bool hasScale() const;

    /// Sets the length in pixels. The handles stay where they are, but within the strip; as long as nothing
    /// is selected and they mark the whole strip, they go on doing so.
    void setLength(int length);

    /// Sets the length and places the handles for the selection, as synchronise() does; without a selection
    /// they stay, as in setLength().
    void resize(int length);

    /// Stores \a canvas as the master canvas and returns true if its x or its width is another than before.
    /// The handles do not move.
    bool setMaster(const QRectF &canvas);

    /// Makes \a range the selection and places the handles for it, first the left one, then the right one.
    /// On purpose the left one is stopped by the place that the right one has before. An edge that is stopped
    /// rewrites its side of the selection. A range that is not finite is ignored.
    void synchronise(const QRectF &range);

    /// Moves one edge to \a x, as far as the other handle and the ends of the strip allow. If it is stopped
    /// before \a x, its side of the selection becomes the value at its place; otherwise the selection stays.
    void moveLeftEdge(int x);
    void moveRightEdge(int x);

    /// Moves both handles, so that the left position becomes \a x as far as the strip allows; their distance
    /// stays. The selection moves along and keeps its width in values.
    void moveBoth(int x);

    /// Makes the selection what the handles show: from the value at the left position to the value at the
    /// right one, if an edge was moved last; with the width of the current selection, if both were moved. Its
    /// top is kept, its height becomes 0.
    void selectFromHandles();

private:
    void setLeftEdge(int x);
    void setRightEdge(int x);

    int m_length = 0;
    int m_left = 0;
    int m_right = 0;
    bool m_edgeResized = false; ///< the last drag moved one edge, not the whole selection
    QRectF m_master;
    QRectF m_selection;
};

#endif // SLIDERARITHMETIC_P_H
