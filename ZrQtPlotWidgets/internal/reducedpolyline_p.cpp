#include "reducedpolyline_p.h"

#include "barpainter_p.h"
#include "columnreduction_p.h"
#include "painterstate_p.h"
#include "polyline_p.h"
#include "reducedline_p.h"
#include "strokeruns_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>

namespace {

// Pixels. Qt's rasterizer is fast and exact up to the farthest one; where the picture does not need them,
// half as many will do.
constexpr int farthestPixel = 32767;
constexpr int enoughPixels = 16000;

constexpr int fewSamples = 64; // that are no trouble for Qt with any pen

constexpr int mostLayerPixels = 16000000; // at a time; four bytes each

bool drawsPixels(const QPainter &painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster && painter.deviceTransform().isAffine();
}

bool isAlongAxes(const QTransform &transform)
{
    return transform.m12() == 0.0 && transform.m21() == 0.0;
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

/// An opaque colour replaces what is beneath it, and smoothed edges are mixed with it, in both modes. But
/// what is drawn in pieces has to be mixed with the pieces before.
void preferSourceOver(QPainter &painter)
{
    if (painter.compositionMode() == QPainter::CompositionMode_Source && painter.pen().brush().isOpaque())
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

/// Whether what is drawn twice with the painter's colour looks as if it were drawn once.
bool isOpaque(const QPainter &painter)
{
    return painter.pen().brush().isOpaque() && painter.opacity() >= 1.0
           && painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

/// Whether a transparent pixel that is drawn changes nothing.
bool keepsWhatIsNotCovered(QPainter::CompositionMode mode)
{
    switch (mode) {
    case QPainter::CompositionMode_Clear:
    case QPainter::CompositionMode_Source:
    case QPainter::CompositionMode_SourceIn:
    case QPainter::CompositionMode_SourceOut:
    case QPainter::CompositionMode_DestinationIn:
    case QPainter::CompositionMode_DestinationAtop:
        return false;
    default:
        return mode < QPainter::RasterOp_SourceOrDestination;
    }
}

bool isHairline(const QPainter &painter)
{
    return painter.pen().widthF() <= 1.0;
}

/// Whether the line has to be drawn with an opaque pen and then mixed with the picture as a whole. Qt mixes
/// each pixel of a wide line with the picture only once, but those of hairlines as often as the line crosses
/// itself.
bool needsLayer(const QPainter &painter, const SampleSeries &series)
{
    return series.points().size() > fewSamples && !isHairline(painter) && !isOpaque(painter)
           && keepsWhatIsNotCovered(painter.compositionMode());
}

LineQuality qualityFor(const QPainter &painter)
{
    const bool isSolid = painter.pen().style() == Qt::SolidLine;
    if (!isOpaque(painter) || (isHairline(painter) && !isSolid))
        return LineQuality::Transparent;
    const bool isExact = isHairline(painter) && !painter.testRenderHint(QPainter::Antialiasing);
    return isExact ? LineQuality::Hairline : LineQuality::Opaque;
}

/// Draws a line with the pen of a painter of pixels.
class LinePainter
{
public:
    LinePainter(QPainter &painter, const QRect &bounds)
        : m_painter(painter)
        , m_bounds(bounds)
        , m_quality(qualityFor(painter))
        , m_penWidth(painter.pen().widthF())
    {
        const double reach = m_penWidth + 1.0;
        m_nearby = QRectF(bounds).adjusted(-reach, -reach, reach, reach);
        const QRectF enough(QPointF(-enoughPixels, -enoughPixels), QPointF(enoughPixels, enoughPixels));
        const QRectF all(QPointF(-farthestPixel, -farthestPixel), QPointF(farthestPixel, farthestPixel));
        m_paintable = (enough | m_nearby) & all;
    }

    void draw(SampleSeries &series, const QTransform &toPixels)
    {
        if (series.isAscending() && isAlongAxes(toPixels))
            drawVisibleSamples(series, PixelMapping(toPixels));
        else
            drawEverySample(series, toPixels);
    }

private:
    void drawVisibleSamples(SampleSeries &series, const PixelMapping &mapping)
    {
        const double left = m_bounds.left() - m_penWidth;
        const double right = m_bounds.right() + 1 + m_penWidth;
        if (visibleSpan(series, mapping, left, right).size() > m_bounds.width()) {
            drawColumns(series, visibleColumns(series, mapping, left, right), mapping);
            return;
        }
        const QVector<IndexRange> ranges = visibleRanges(series, mapping, left, right);
        for (const IndexRange &range : ranges)
            drawSamples(series, range, [&mapping](const QPointF &point) { return mapping.map(point); });
    }

    void drawColumns(SampleSeries &series, const QVector<ColumnSamples> &columns, const PixelMapping &mapping)
    {
        ReducedLine line = reducedLine(series, columns, mapping, m_quality, m_penWidth, m_bounds.top(),
                                       m_bounds.bottom() + 1);
        BarPainter(m_painter, m_bounds).draw(std::move(line.bars));
        drawHairlines(std::move(line.hairlines));
        for (const QPolygonF &stroke : qAsConst(line.strokes))
            drawStroke(stroke);
    }

    void drawEverySample(SampleSeries &series, const QTransform &toPixels)
    {
        const PixelMapping mapping(toPixels);
        for (const IndexRange &run : series.runs()) {
            if (isAlongAxes(toPixels))
                drawSamples(series, run, [&mapping](const QPointF &point) { return mapping.map(point); });
            else
                drawSamples(series, run, [&toPixels](const QPointF &point) { return toPixels.map(point); });
        }
    }

    template <typename ToPixel>
    void drawSamples(const SampleSeries &series, const IndexRange &samples, ToPixel toPixel)
    {
        QPolygonF line(samples.size());
        const auto *points = series.points().constData();
        std::transform(points + samples.begin, points + samples.end, line.begin(), toPixel);
        drawStroke(line);
    }

    /// Many at once: a call of the painter costs as much as some lines do.
    void drawHairlines(QVector<QLineF> lines)
    {
        const auto firstFar = std::stable_partition(lines.begin(), lines.end(), [this](const QLineF &line) {
            return isPaintable(line.p1()) && isPaintable(line.p2());
        });
        m_painter.drawLines(lines.constData(), static_cast<int>(firstFar - lines.begin()));
        for (auto line = firstFar; line != lines.end(); ++line)
            drawStroke(QPolygonF(QVector<QPointF>{line->p1(), line->p2()}));
    }

    void drawStroke(const QPolygonF &stroke)
    {
        if (std::all_of(stroke.cbegin(), stroke.cend(),
                        [this](const QPointF &point) { return isPaintable(point); })) {
            drawNearStroke(stroke);
            return;
        }
        const QVector<QPolygonF> parts = polylineWithin(stroke, m_paintable);
        for (const QPolygonF &part : parts)
            drawNearStroke(part);
    }

    /// False for NaN.
    [[nodiscard]] bool isPaintable(const QPointF &point) const
    {
        return point.x() >= m_paintable.left() && point.x() <= m_paintable.right()
               && point.y() >= m_paintable.top() && point.y() <= m_paintable.bottom();
    }

    void drawNearStroke(const QPolygonF &stroke)
    {
        if (m_quality != LineQuality::Opaque)
            m_painter.drawPolyline(stroke);
        else if (m_painter.pen().style() == Qt::SolidLine)
            strokeInRuns(m_painter, stroke);
        else
            strokeDashes(m_painter, stroke, m_nearby);
    }

    QPainter &m_painter;
    QRect m_bounds;
    LineQuality m_quality;
    double m_penWidth;
    QRectF m_nearby;    // where the line can reach into the picture
    QRectF m_paintable; // where it can be drawn as it is
};

/// Draws the part of the line that lies in `band`.
void drawThroughLayer(QPainter &painter, SampleSeries &series, const QTransform &toPixels, const QRect &band)
{
    QImage layer(band.size(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    QPen pen = painter.pen();
    const QColor color = pen.color();
    pen.setColor(QColor(color.rgb()));
    QPainter layerPainter(&layer);
    layerPainter.setRenderHints(painter.renderHints());
    layerPainter.setPen(pen);
    layerPainter.setClipRect(layer.rect());
    LinePainter(layerPainter, layer.rect())
        .draw(series, toPixels * QTransform::fromTranslate(-band.left(), -band.top()));
    layerPainter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    layerPainter.fillRect(layer.rect(), color); // rounds as painting with the translucent pen does
    layerPainter.end();
    painter.drawImage(band.topLeft(), layer);
}

/// Draws in bands of rows, so that a huge picture does not take all memory.
void drawThroughLayers(QPainter &painter, SampleSeries &series, const QTransform &toPixels,
                       const QRect &bounds)
{
    const QRect visible = bounds & painter.clipBoundingRect().toAlignedRect();
    const int rows = std::max(1, mostLayerPixels / std::max(1, visible.width()));
    for (int top = visible.top(); top <= visible.bottom(); top += rows)
        drawThroughLayer(painter, series, toPixels,
                         visible & QRect(visible.left(), top, visible.width(), rows));
}

/// Draws all samples on what is no picture of pixels.
void drawShapes(QPainter &painter, SampleSeries &series)
{
    for (const IndexRange &run : series.runs())
        drawPolyline(painter, series.points().mid(run.begin, run.size()));
}

} // namespace

void drawReducedPolyline(QPainter &painter, SampleSeries &series)
{
    if (!drawsPixels(painter)) {
        drawShapes(painter, series);
        return;
    }
    const PainterState state(painter);
    const QTransform toPixels = painter.deviceTransform();
    const QRect bounds = enterPixels(painter);
    painter.setClipRect(bounds, Qt::IntersectClip); // many times as fast, see drawPolyline()
    preferSourceOver(painter);
    if (needsLayer(painter, series))
        drawThroughLayers(painter, series, toPixels, bounds);
    else
        LinePainter(painter, bounds).draw(series, toPixels);
}
