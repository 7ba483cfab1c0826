#ifndef BARPAINTER_P_H
#define BARPAINTER_P_H

#include "reducedline_p.h"

#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QColor>

class QPainter;

/// Fills the bars of a line with an opaque pen of any width. With antialiasing, what a bar covers of the
/// pixels at its ends and beside it is mixed with what is beneath them.
class BarPainter
{
public:
    /// Paints within `bounds`. One unit of the painter must be one pixel.
    BarPainter(QPainter &painter, const QRect &bounds);

    void draw(QVector<ColumnBar> bars);

private:
    void drawEdges(const QVector<ColumnBar> &bars, int i);
    [[nodiscard]] double topOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const;
    [[nodiscard]] double bottomOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const;
    void blend(int left, int width, double top, double end, double coverage);

    QPainter &m_painter;
    QRect m_bounds;
    QColor m_color;
    int m_width;
};

#endif // BARPAINTER_P_H
