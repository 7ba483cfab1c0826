#ifndef MARKERLAYER_P_H
#define MARKERLAYER_P_H

#include "pointmarkers_p.h"

#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtGui/QImage>
#include <QtGui/QPen>

#include <optional>
#include <vector>

class QPainter;

/// A grid of the places where markers are put. One place after the other is `period` cells and `pixels`
/// pixels away: the pictures of markers in the cells between differ in how they fall on the pixels.
struct MarkerGrid
{
    double cellsPerUnit = 1.0; ///< a unit is that of the painter
    int period = 1;
    int pixels = 1;
    double placeInCell = 0.0; ///< of the centre, 0 to 1

    /// The grid for markers of a `shape` on a device with `ratio` pixels to a unit, if there is one. Filled
    /// markers are on whole units; crosses are put on fractions of a pixel that the eye cannot tell.
    static std::optional<MarkerGrid> forShape(MarkerShape shape, double ratio, bool antialiased);
};

/// A picture of any number of markers in one colour, made from one picture for each way in which they fall
/// on the pixels. Markers in the same cell of the grid are drawn as often as it shows: once if they are
/// opaque.
class MarkerLayer
{
public:
    /// For what can be seen of markers within `bounds`, pixels. The markers have the painter's pen.
    MarkerLayer(const QPainter &painter, const QRect &bounds, const MarkerGrid &grid,
                const MarkerStyle &style);

    /// The cells whose markers reach into the picture.
    [[nodiscard]] const QRect &cells() const { return m_cells; }

    /// Puts a marker into one of cells(). Whether it makes a difference.
    bool add(int x, int y)
    {
        unsigned char &count = m_counts[indexOf(x, y)];
        if (count >= m_mostInCell)
            return false;
        ++count;
        m_usedRows[size_t(y - m_cells.top())] = 1;
        return true;
    }

    /// Whether one more marker in a cell makes a difference.
    [[nodiscard]] bool isOpen(int x, int y) const { return m_counts[indexOf(x, y)] < m_mostInCell; }

    /// Draws the markers with a painter of pixels.
    void draw(QPainter &painter);

private:
    using Bytes = std::vector<unsigned char>;

    /// Pixels in a row that are opaque.
    struct Span
    {
        QPoint begin; ///< from the first pixel of the place
        int length = 0;
    };
    struct TranslucentPixel
    {
        QPoint position;
        int alpha = 0;
    };
    struct Sprite
    {
        std::vector<Span> spans; ///< short ones first
        std::vector<TranslucentPixel> pixels;
    };

    [[nodiscard]] size_t indexOf(int x, int y) const
    {
        return size_t(y - m_cells.top()) * size_t(m_cells.width()) + size_t(x - m_cells.left());
    }

    void makeSprites(const QPainter &painter, const MarkerStyle &style);
    void appendToSprite(Sprite &sprite, const QImage &image);
    [[nodiscard]] const Sprite *spritesOf(int cellRow) const;
    [[nodiscard]] unsigned char *alphaRow(int cellRow);
    void fillSpans(int cellRow);
    void markPlaces(int cellRow, int phase);
    void blendPixels(int cellRow);
    void drawAlpha(QPainter &painter) const;

    QRect m_bounds;
    MarkerGrid m_grid;
    QColor m_color;
    double m_ratio;
    int m_reach; // pixels, from a place
    QRect m_cells;
    std::vector<Sprite> m_sprites; // by phase in y, then x
    int m_mostInCell = 1;
    Bytes m_counts;
    Bytes m_usedRows;
    QSize m_alphaSize;
    Bytes m_alpha; // of the picture, which is `m_reach` larger than the cells at each side
    Bytes m_marks; // of one row
    Bytes m_widened;
};

#endif // MARKERLAYER_P_H
