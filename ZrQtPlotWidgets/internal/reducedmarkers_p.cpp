#include "reducedmarkers_p.h"

#include "columnreduction_p.h"
#include "painterstate_p.h"

#include <QtGui/QImage>
#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPen>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int largestSprite = 64; // pixels; of larger ones only few are visible at a time

bool isFilled(MarkerShape shape)
{
    return shape == MarkerShape::Rectangle || shape == MarkerShape::Circle;
}

/// Calls `visit` with each sample, and its pixel, whose marker may reach into `area`.
template <typename Visit>
void visitPointsNear(SampleSeries &series, const MarkerStyle &style, const QRectF &area, Visit visit)
{
    const PixelMapping mapping(style.toPixel);
    const double left = area.left();
    const double right = area.right();
    const double top = area.top();
    const double bottom = area.bottom();
    const QPointF *points = series.points().constData();
    const QVector<IndexRange> ranges = visibleRanges(series, mapping, left, right);
    for (const IndexRange &range : ranges) {
        for (int i = range.begin; i < range.end; ++i) {
            const QPointF pixel = mapping.map(points[i]);
            if (pixel.x() >= left && pixel.x() <= right && pixel.y() >= top && pixel.y() <= bottom)
                visit(points[i], pixel);
        }
    }
}

/// A picture that collects markers.
class MarkerLayer
{
public:
    /// For markers with their centres in an area of `size`.
    MarkerLayer(const QSize &size, const MarkerStyle &style, bool antialiased)
        : m_size(size)
        , m_sprite(spriteOf(style, antialiased))
        , m_taken(size_t(size.width()) * size_t(size.height()))
        , m_image(size + m_sprite.size(), QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::transparent);
        m_pixels = reinterpret_cast<QRgb *>(m_image.bits());
        m_pixelsPerLine = m_image.bytesPerLine() / int(sizeof(QRgb));
        findSpans();
    }

    /// Where the pixel (0, 0) of the area is in the picture.
    [[nodiscard]] QPoint origin() const { return m_sprite.rect().center(); }
    [[nodiscard]] const QImage &image() const { return m_image; }

    /// Sets a marker; the first one on each pixel counts.
    void add(const QPoint &centre)
    {
        if (centre.x() < 0 || centre.y() < 0 || centre.x() >= m_size.width() || centre.y() >= m_size.height())
            return;
        auto taken = m_taken[size_t(centre.y()) * size_t(m_size.width()) + size_t(centre.x())];
        if (taken)
            return;
        taken = true;
        QRgb *pixels = m_pixels + qptrdiff(centre.y()) * m_pixelsPerLine + centre.x();
        for (const Span &span : m_spans) {
            QRgb *target = pixels + span.offset;
            if (span.opaque)
                std::fill_n(target, span.length, *span.source);
            else
                std::transform(span.source, span.source + span.length, target, target, blended);
        }
    }

private:
    /// Neighbouring pixels of the sprite that are all translucent, or all opaque and thus of one colour.
    struct Span
    {
        int offset = 0; ///< from the first pixel of the sprite, in pixels of the picture
        int length = 0;
        bool opaque = false;
        const QRgb *source = nullptr;
    };

    static QImage spriteOf(const MarkerStyle &style, bool antialiased)
    {
        QImage sprite(style.size, style.size, QImage::Format_ARGB32_Premultiplied);
        sprite.fill(Qt::transparent);
        QPainter painter(&sprite);
        painter.setRenderHint(QPainter::Antialiasing, antialiased);
        painter.setPen(Qt::NoPen);
        painter.setBrush(style.color);
        if (style.shape == MarkerShape::Rectangle)
            painter.drawRect(sprite.rect());
        else
            painter.drawEllipse(sprite.rect());
        return sprite;
    }

    void findSpans()
    {
        for (int row = 0; row < m_sprite.height(); ++row) {
            const auto *line = reinterpret_cast<const QRgb *>(m_sprite.constScanLine(row));
            for (int x = 0; x < m_sprite.width(); ++x) {
                const bool opaque = qAlpha(line[x]) == 255;
                if (qAlpha(line[x]) == 0)
                    continue;
                const int offset = row * m_pixelsPerLine + x;
                const bool goesOn = !m_spans.empty()
                                    && m_spans.back().offset + m_spans.back().length == offset
                                    && m_spans.back().opaque == opaque;
                if (!goesOn)
                    m_spans.push_back({offset, 0, opaque, line + x});
                ++m_spans.back().length;
            }
        }
    }

    /// `over` on top of `under`, both premultiplied.
    static QRgb blended(QRgb over, QRgb under)
    {
        const int rest = 255 - qAlpha(over);
        const auto mixed = [rest](int top, int bottom) { return top + (bottom * rest + 127) / 255; };
        return qRgba(mixed(qRed(over), qRed(under)), mixed(qGreen(over), qGreen(under)),
                     mixed(qBlue(over), qBlue(under)), mixed(qAlpha(over), qAlpha(under)));
    }

    QSize m_size;
    QImage m_sprite;
    std::vector<bool> m_taken; // by pixel
    QImage m_image;
    QRgb *m_pixels = nullptr;
    int m_pixelsPerLine = 0;
    std::vector<Span> m_spans;
};

/// The area that can be painted on, in the pixels of a painter without transform; a few more do no harm.
QRect paintableArea(const QPainter &painter)
{
    return QRect(0, 0, painter.device()->width(), painter.device()->height());
}

/// Whether the pixels of an untransformed painter are those of its device.
bool hasWholePixels(const QPainter &painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster
           && painter.compositionMode() == QPainter::CompositionMode_SourceOver && painter.opacity() >= 1.0
           && painter.device()->devicePixelRatioF() == 1.0;
}

} // namespace

void drawReducedMarkers(QPainter &painter, SampleSeries &series, const MarkerStyle &style)
{
    const PainterState state(painter);
    painter.resetTransform();
    const QRect area = paintableArea(painter);
    const double reach = style.size + painter.pen().widthF() + 1.0;
    const QRectF reachable = QRectF(area).adjusted(-reach, -reach, reach, reach);
    if (!isFilled(style.shape) || style.size > largestSprite || !hasWholePixels(painter)) {
        QVector<QPointF> points;
        visitPointsNear(series, style, reachable,
                        [&points](const QPointF &point, const QPointF &) { points.append(point); });
        drawPointMarkers(painter, points, style);
        return;
    }
    // Markers whose centre is just outside of the picture reach into it.
    const QRect centres = area.adjusted(-style.size, -style.size, style.size, style.size);
    MarkerLayer layer(centres.size(), style, painter.testRenderHint(QPainter::Antialiasing));
    const auto add = [&layer, canvas = style.canvas.normalized(),
                      origin = centres.topLeft()](const QPointF &point, const QPointF &pixel) {
        if (point.x() >= canvas.left() && point.x() <= canvas.right() && point.y() >= canvas.top()
            && point.y() <= canvas.bottom())
            layer.add(QPoint(static_cast<int>(pixel.x()), static_cast<int>(pixel.y())) - origin);
    };
    if (style.canvas.width() != 0.0 && style.canvas.height() != 0.0)
        visitPointsNear(series, style, reachable, add);
    painter.drawImage(centres.topLeft() - layer.origin(), layer.image());
}
