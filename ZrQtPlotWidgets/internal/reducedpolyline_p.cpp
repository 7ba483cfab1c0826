#include "reducedpolyline_p.h"

#include "columnbars_p.h"
#include "columnreduction_p.h"
#include "painterstate_p.h"
#include "polyline_p.h"
#include "reducedline_p.h"
#include "strokeruns_p.h"

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>

namespace {

// Pixels. Qt's rasterizer is fast and exact up to twice as far.
constexpr double farthestPixel = 16000.0;

bool drawsPixelsAlongAxes(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    return painter.paintEngine()->type() == QPaintEngine::Raster && transform.isAffine()
           && transform.m12() == 0.0 && transform.m21() == 0.0;
}

/// Makes one unit of the painter one pixel of its device and returns the pixels that can be painted on. A few
/// more do no harm.
QRect enterPixels(QPainter &painter)
{
    painter.resetTransform();
    const QTransform toPixels = painter.deviceTransform();
    painter.setWorldTransform(toPixels.inverted());
    const QPaintDevice *device = painter.device();
    return toPixels.mapRect(QRectF(0, 0, device->width(), device->height())).toAlignedRect();
}

LineQuality qualityFor(const QPainter &painter)
{
    if (!isOpaqueAndSolid(painter))
        return LineQuality::Transparent;
    const bool hairline = painter.pen().widthF() <= 1.0 && !painter.testRenderHint(QPainter::Antialiasing);
    return hairline ? LineQuality::Hairline : LineQuality::Opaque;
}

void drawStroke(QPainter &painter, const QPolygonF &stroke, LineQuality quality)
{
    const auto isFar = [](const QPointF &point) {
        return std::abs(point.x()) > farthestPixel || std::abs(point.y()) > farthestPixel;
    };
    const auto draw = [&painter, quality](const QPolygonF &line) {
        if (quality == LineQuality::Opaque)
            strokeInRuns(painter, line);
        else
            painter.drawPolyline(line);
    };
    if (std::none_of(stroke.cbegin(), stroke.cend(), isFar)) {
        draw(stroke);
        return;
    }
    const QRectF nearby(QPointF(-farthestPixel, -farthestPixel), QPointF(farthestPixel, farthestPixel));
    const QVector<QPolygonF> parts = polylineWithin(stroke, nearby);
    for (const QPolygonF &part : parts)
        draw(part);
}

/// Fills the bars of a line. With antialiasing, what a bar covers of the pixels at its ends and beside it is
/// mixed with what is beneath them.
class BarPainter
{
public:
    BarPainter(QPainter &painter, const QRect &bounds)
        : m_painter(painter)
        , m_bounds(bounds)
        , m_color(painter.pen().color())
        , m_width(std::max(1, qRound(painter.pen().widthF())))
    {
    }

    void draw(QVector<ColumnBar> bars)
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
        QVector<QRect> rectangles = rectanglesOf(bars, m_bounds);
        for (QRect &rectangle : rectangles)
            rectangle.adjust(-(m_width / 2), 0, (m_width - 1) / 2, 0);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(m_color);
        m_painter.drawRects(rectangles);
    }

private:
    void drawEdges(const QVector<ColumnBar> &bars, int i)
    {
        const ColumnBar &bar = bars.at(i);
        const int left = bar.column - m_width / 2;
        const double upperEnd = std::ceil(bar.top);
        const double lowerEnd = std::floor(bar.bottom);
        blend(left, m_width, upperEnd - 1, upperEnd, upperEnd - bar.top);
        blend(left, m_width, lowerEnd, lowerEnd + 1, bar.bottom - lowerEnd);

        // On average a line is half over the border of its column. Only tips show it: the rest of both sides
        // is filled by the neighbours.
        const double hiddenTop = std::max(topOfNeighbour(bars, i, -1), topOfNeighbour(bars, i, 1));
        const double hiddenBottom = std::min(bottomOfNeighbour(bars, i, -1), bottomOfNeighbour(bars, i, 1));
        blend(left - 1, m_width + 2, upperEnd, std::min(hiddenTop, lowerEnd), 0.5);
        blend(left - 1, m_width + 2, std::max({hiddenBottom, hiddenTop, upperEnd}), lowerEnd, 0.5);
    }

    static bool isNeighbour(const QVector<ColumnBar> &bars, int i, int step)
    {
        const int other = i + step;
        return other >= 0 && other < bars.size() && std::abs(bars.at(other).column - bars.at(i).column) == 1;
    }

    double topOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const
    {
        return isNeighbour(bars, i, step) ? std::ceil(bars.at(i + step).top) : m_bounds.bottom() + 1.0;
    }

    double bottomOfNeighbour(const QVector<ColumnBar> &bars, int i, int step) const
    {
        return isNeighbour(bars, i, step) ? std::floor(bars.at(i + step).bottom) : m_bounds.top();
    }

    /// Draws over the rows from `top` up to, and without, `end` with a part of the colour.
    void blend(int left, int width, double top, double end, double coverage)
    {
        const int firstRow = qRound(std::max<double>(top, m_bounds.top()));
        const int endRow = qRound(std::min<double>(end, m_bounds.bottom() + 1.0));
        if (firstRow >= endRow || !(coverage > 0.0))
            return;
        QColor color = m_color;
        color.setAlphaF(std::min(coverage, 1.0));
        m_painter.fillRect(left, firstRow, width, endRow - firstRow, color);
    }

    QPainter &m_painter;
    QRect m_bounds;
    QColor m_color;
    int m_width;
};

void drawColumns(QPainter &painter, SampleSeries &series, const PixelMapping &mapping, const QRect &bounds)
{
    const LineQuality quality = qualityFor(painter);
    const double penWidth = painter.pen().widthF();
    const QVector<ColumnSamples> columns
        = visibleColumns(series, mapping, bounds.left() - penWidth, bounds.right() + 1 + penWidth);
    const ReducedLine line
        = reducedLine(series, columns, mapping, quality, penWidth, bounds.top(), bounds.bottom() + 1);
    BarPainter(painter, bounds).draw(line.bars);
    for (const QPolygonF &stroke : line.strokes)
        drawStroke(painter, stroke, quality);
}

void drawEverySample(QPainter &painter, SampleSeries &series, const PixelMapping &mapping)
{
    const LineQuality quality = qualityFor(painter);
    for (const IndexRange &run : series.runs()) {
        QPolygonF line;
        line.reserve(run.size());
        for (int i = run.begin; i < run.end; ++i)
            line.append(mapping.map(series.points().at(i)));
        drawStroke(painter, line, quality);
    }
}

} // namespace

void drawReducedPolyline(QPainter &painter, SampleSeries &series)
{
    if (!drawsPixelsAlongAxes(painter)) {
        drawPolyline(painter, series.points());
        return;
    }
    const PainterState state(painter);
    const PixelMapping mapping(painter.deviceTransform());
    const QRect bounds = enterPixels(painter);
    painter.setClipRect(bounds, Qt::IntersectClip); // many times as fast, see drawPolyline()
    if (series.isAscending())
        drawColumns(painter, series, mapping, bounds);
    else
        drawEverySample(painter, series, mapping);
}
