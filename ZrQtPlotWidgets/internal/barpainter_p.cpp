#include "barpainter_p.h"

#include "columnbars_p.h"
#include "painterstate_p.h"

#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>

namespace {

bool isNeighbour(const QVector<ColumnBar> &bars, int i, int step)
{
    const int other = i + step;
    return other >= 0 && other < bars.size() && std::abs(bars.at(other).column - bars.at(i).column) == 1;
}

} // namespace

BarPainter::BarPainter(QPainter &painter, const QRect &bounds)
    : m_painter(painter)
    , m_bounds(bounds)
    , m_color(painter.pen().color())
    , m_width(std::max(1, qRound(painter.pen().widthF())))
{
}

void BarPainter::draw(QVector<ColumnBar> bars)
{
    if (bars.isEmpty())
        return;
    const PainterState state(m_painter);
    const bool antialiased = m_painter.testRenderHint(QPainter::Antialiasing);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    if (antialiased) {
        for (int i = 0; i < bars.size(); ++i)
            drawEdges(bars, i);
    }
    for (ColumnBar &bar : bars) {
        bar.top = antialiased ? std::ceil(bar.top) : std::floor(bar.top + 0.5);
        bar.bottom = antialiased ? std::floor(bar.bottom) : std::floor(bar.bottom + 0.5);
    }
    // Half of a wide bar reaches into the picture from beyond its border.
    const int reach = m_width / 2;
    QVector<QRect> rectangles = rectanglesOf(bars, m_bounds.adjusted(-reach, 0, reach, 0));
    for (QRect &rectangle : rectangles)
        rectangle.adjust(-reach, 0, (m_width - 1) / 2, 0);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_color);
    m_painter.drawRects(rectangles);
}

void BarPainter::drawEdges(const QVector<ColumnBar> &bars, int i)
{
    const ColumnBar &bar = bars.at(i);
    const int left = bar.column - m_width / 2;
    const double upperEnd = std::ceil(bar.top);
    const double lowerEnd = std::floor(bar.bottom);
    blend(left, m_width, upperEnd - 1, upperEnd, upperEnd - bar.top);
    blend(left, m_width, lowerEnd, lowerEnd + 1, bar.bottom - lowerEnd);

    // On average a line is half over the border of its column. Only tips show it: the rest of both sides is
    // filled by the neighbours.
    const double hiddenTop = std::max(topOfNeighbour(bars, i, -1), topOfNeighbour(bars, i, 1));
    const double hiddenBottom = std::min(bottomOfNeighbour(bars, i, -1), bottomOfNeighbour(bars, i, 1));
    blend(left - 1, m_width + 2, upperEnd, std::min(hiddenTop, lowerEnd), 0.5);
    blend(left - 1, m_width + 2, std::max({hiddenBottom, hiddenTop, upperEnd}), lowerEnd, 0.5);
}

double BarPainter::topOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const
{
    return isNeighbour(bars, i, step) ? std::ceil(bars.at(i + step).top) : m_bounds.bottom() + 1.0;
}

double BarPainter::bottomOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const
{
    return isNeighbour(bars, i, step) ? std::floor(bars.at(i + step).bottom) : m_bounds.top();
}

/// Draws over the rows from `top` up to, and without, `end` with a part of the colour.
void BarPainter::blend(int left, int width, double top, double end, double coverage)
{
    const double firstVisible = m_bounds.top();
    const double endOfVisible = m_bounds.bottom() + 1.0;
    // Both ends at both sides: a row may be too far away for an integer.
    const int firstRow = qRound(qBound(firstVisible, top, endOfVisible));
    const int endRow = qRound(qBound(firstVisible, end, endOfVisible));
    if (firstRow >= endRow || !(coverage > 0.0))
        return;
    QColor color = m_color;
    color.setAlphaF(std::min(coverage, 1.0));
    m_painter.fillRect(left, firstRow, width, endRow - firstRow, color);
}
