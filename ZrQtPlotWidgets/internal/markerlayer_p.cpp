#include "markerlayer_p.h"

#include "painterstate_p.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace {

constexpr int opaque = 255;
constexpr int rowsInBand = 16;

int floorDivided(int number, int divisor)
{
    return static_cast<int>(std::floor(double(number) / divisor));
}

/// What is set in `added` is set in `bytes` as well. Eight at a time, which compilers do not do by themselves
/// if both may be the same.
void addBytes(unsigned char *bytes, const unsigned char *added, int count)
{
    constexpr int wordSize = sizeof(quint64);
    int i = 0;
    for (; i + wordSize <= count; i += wordSize) {
        quint64 word = 0;
        quint64 addedWord = 0;
        std::memcpy(&word, bytes + i, sizeof word);
        std::memcpy(&addedWord, added + i, sizeof addedWord);
        word |= addedWord;
        std::memcpy(bytes + i, &word, sizeof word);
    }
    for (; i < count; ++i)
        bytes[i] |= added[i];
}

unsigned char blended(int over, int under)
{
    return static_cast<unsigned char>(under + ((opaque - under) * over + opaque / 2) / opaque);
}

/// The alpha of a number of layers above each other.
int layered(int alpha, int layers)
{
    int sum = 0;
    for (int i = 0; i < layers && sum < opaque; ++i)
        sum = blended(alpha, sum);
    return sum;
}

/// How many layers of an `alpha` look like any greater number of them.
int layersUntilOpaque(int alpha)
{
    if (alpha >= opaque)
        return 1;
    const double left = std::log(0.5 / opaque) / std::log(1.0 - std::max(alpha, 1) / double(opaque));
    return qBound(1, static_cast<int>(std::ceil(left)), 255);
}

} // namespace

std::optional<MarkerGrid> MarkerGrid::forShape(MarkerShape shape, double ratio, bool antialiased)
{
    if (shape == MarkerShape::Cross || shape == MarkerShape::DiagonalCross) {
        // Diagonals fall on the pixels in more ways; but where pixels are fine, nobody can tell.
        const bool isDelicate = antialiased || shape == MarkerShape::DiagonalCross;
        const int cells = isDelicate && ratio < 2.0 ? 4 : 2;
        return MarkerGrid{cells * ratio, cells, 1, 0.5};
    }
    for (const int period : {1, 2, 4}) {
        const double pixels = ratio * period;
        if (pixels == std::floor(pixels))
            return MarkerGrid{1.0, period, static_cast<int>(pixels), 0.0};
    }
    return std::nullopt;
}

MarkerLayer::MarkerLayer(const QPainter &painter, const QRect &bounds, const MarkerGrid &grid,
                         const MarkerStyle &style)
    : m_bounds(bounds)
    , m_grid(grid)
    , m_color(style.color)
    , m_ratio(grid.cellsPerUnit * grid.pixels / grid.period)
{
    m_color.setAlphaF(m_color.alphaF() * painter.opacity());
    const double reach = style.size * m_ratio + painter.pen().widthF() + 2.0;
    m_reach = static_cast<int>(std::ceil(reach / grid.pixels)) * grid.pixels;
    // Whole places, so that the first cell is the first one of its place.
    const int left = floorDivided(bounds.left() - m_reach, grid.pixels);
    const int top = floorDivided(bounds.top() - m_reach, grid.pixels);
    const int right = floorDivided(bounds.right() + m_reach, grid.pixels);
    const int bottom = floorDivided(bounds.bottom() + m_reach, grid.pixels);
    m_cells = QRect(left * grid.period, top * grid.period, (right - left + 1) * grid.period,
                    (bottom - top + 1) * grid.period);
    m_counts.resize(size_t(m_cells.width()) * size_t(m_cells.height()));
    m_usedRows.resize(size_t(m_cells.height()));
    m_alphaSize = QSize((right - left + 1) * grid.pixels, (bottom - top + 1) * grid.pixels)
                  + QSize(3 * m_reach, 3 * m_reach);
    makeSprites(painter, style);
}

void MarkerLayer::makeSprites(const QPainter &painter, const MarkerStyle &style)
{
    MarkerStyle onlyOne = style;
    onlyOne.color = m_color;
    onlyOne.toPixel = QTransform();
    onlyOne.canvas = QRectF(-1e6, -1e6, 2e6, 2e6);
    const int place = m_reach / m_grid.pixels * m_grid.period;
    int greatestAlpha = 0;
    for (int y = 0; y < m_grid.period; ++y) {
        for (int x = 0; x < m_grid.period; ++x) {
            QImage picture(2 * m_reach + m_grid.pixels, 2 * m_reach + m_grid.pixels,
                           QImage::Format_ARGB32_Premultiplied);
            picture.setDevicePixelRatio(m_ratio);
            picture.fill(Qt::transparent);
            QPainter spritePainter(&picture);
            spritePainter.setRenderHints(painter.renderHints());
            spritePainter.setPen(painter.pen());
            const QPointF centre
                = (QPointF(x + place, y + place) + QPointF(m_grid.placeInCell, m_grid.placeInCell))
                  / m_grid.cellsPerUnit;
            drawPointMarkers(spritePainter, {centre}, onlyOne);
            m_sprites.emplace_back();
            appendToSprite(m_sprites.back(), picture);
            for (const TranslucentPixel &pixel : m_sprites.back().pixels)
                greatestAlpha = std::max(greatestAlpha, pixel.alpha);
            if (!m_sprites.back().spans.empty())
                greatestAlpha = opaque;
        }
    }
    m_mostInCell = m_color.alpha() == opaque ? 1 : layersUntilOpaque(greatestAlpha);
}

void MarkerLayer::appendToSprite(Sprite &sprite, const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(line[x]);
            const QPoint position(x - m_reach, y - m_reach);
            if (alpha == 0)
                continue;
            if (alpha < opaque)
                sprite.pixels.push_back({position, alpha});
            else if (!sprite.spans.empty()
                     && sprite.spans.back().begin + QPoint(sprite.spans.back().length, 0) == position)
                ++sprite.spans.back().length;
            else
                sprite.spans.push_back({position, 1});
        }
    }
    std::sort(sprite.spans.begin(), sprite.spans.end(),
              [](const Span &one, const Span &other) { return one.length < other.length; });
}

/// A span at each mark of a row is the row of marks, widened to the length of the span. So the time does not
/// depend on the number of markers.
void MarkerLayer::fillSpans(int cellRow)
{
    for (int phase = 0; phase < m_grid.period; ++phase) {
        const Sprite &sprite = spritesOf(cellRow)[phase];
        if (sprite.spans.empty())
            continue;
        markPlaces(cellRow, phase);
        m_widened = m_marks;
        int length = 1;
        for (const Span &span : sprite.spans) {
            for (; length < span.length; ++length)
                addBytes(m_widened.data() + m_reach + length, m_marks.data() + m_reach,
                         m_alphaSize.width() - m_reach - length);
            unsigned char *row = alphaRow(cellRow) + qptrdiff(span.begin.y()) * m_alphaSize.width();
            addBytes(row + m_reach + span.begin.x(), m_widened.data() + m_reach,
                     m_alphaSize.width() - m_reach - std::max(0, span.begin.x()));
        }
    }
}

/// Makes m_marks a row of pixels in which the places of a phase that have markers are set.
void MarkerLayer::markPlaces(int cellRow, int phase)
{
    const unsigned char *counts = m_counts.data() + size_t(cellRow) * size_t(m_cells.width());
    m_marks.assign(size_t(m_alphaSize.width()), 0);
    unsigned char *mark = m_marks.data() + m_reach;
    for (int cell = phase; cell < m_cells.width(); cell += m_grid.period, mark += m_grid.pixels)
        *mark = counts[cell] != 0 ? opaque : 0;
}

void MarkerLayer::blendPixels(int cellRow)
{
    const unsigned char *counts = m_counts.data() + size_t(cellRow) * size_t(m_cells.width());
    const Sprite *sprites = spritesOf(cellRow);
    int oneLayer = 0; // neighbouring pixels mostly have the same alpha
    int layers = 0;
    int allLayers = 0;
    for (int cell = 0; cell < m_cells.width(); ++cell) {
        if (counts[cell] == 0)
            continue;
        unsigned char *place = alphaRow(cellRow) + m_reach + qptrdiff(cell / m_grid.period) * m_grid.pixels;
        for (const TranslucentPixel &pixel : sprites[cell % m_grid.period].pixels) {
            unsigned char &alpha
                = place[qptrdiff(pixel.position.y()) * m_alphaSize.width() + pixel.position.x()];
            if (alpha == opaque)
                continue;
            if (pixel.alpha != oneLayer || counts[cell] != layers) {
                oneLayer = pixel.alpha;
                layers = counts[cell];
                allLayers = layered(oneLayer, layers);
            }
            alpha = blended(allLayers, alpha);
        }
    }
}

/// The sprites for a row of cells, by phase in x.
const MarkerLayer::Sprite *MarkerLayer::spritesOf(int cellRow) const
{
    return m_sprites.data() + size_t(cellRow % m_grid.period) * size_t(m_grid.period);
}

/// The pixels of the picture that has the places of a row of cells.
unsigned char *MarkerLayer::alphaRow(int cellRow)
{
    const int row = m_reach + cellRow / m_grid.period * m_grid.pixels;
    return m_alpha.data() + size_t(row) * size_t(m_alphaSize.width());
}

void MarkerLayer::draw(QPainter &painter)
{
    m_alpha.resize(size_t(m_alphaSize.width()) * size_t(m_alphaSize.height()));
    const bool hasTranslucent = std::any_of(m_sprites.cbegin(), m_sprites.cend(),
                                            [](const Sprite &sprite) { return !sprite.pixels.empty(); });
    for (int row = 0; row < m_cells.height(); ++row) {
        if (m_usedRows[size_t(row)] != 0)
            fillSpans(row);
    }
    // After all opaque pixels, so that nothing is mixed beneath them.
    for (int row = 0; row < m_cells.height() && hasTranslucent; ++row) {
        if (m_usedRows[size_t(row)] != 0)
            blendPixels(row);
    }
    drawAlpha(painter);
}

/// Draws the picture in bands, which stay in the processor's cache.
void MarkerLayer::drawAlpha(QPainter &painter) const
{
    const PainterState state(painter);
    painter.setOpacity(1.0); // the markers have it
    std::array<QRgb, opaque + 1> colors{};
    for (int alpha = 0; alpha <= opaque; ++alpha)
        colors[size_t(alpha)] = qPremultiply(qRgba(m_color.red(), m_color.green(), m_color.blue(), alpha));
    const QPoint first(m_bounds.left() - m_cells.left() / m_grid.period * m_grid.pixels + m_reach,
                       m_bounds.top() - m_cells.top() / m_grid.period * m_grid.pixels + m_reach);
    const int width = m_bounds.width();
    for (int top = 0; top < m_bounds.height(); top += rowsInBand) {
        QImage band(width, std::min(rowsInBand, m_bounds.height() - top),
                    QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < band.height(); ++y) {
            const unsigned char *alpha
                = m_alpha.data() + size_t(first.y() + top + y) * size_t(m_alphaSize.width()) + first.x();
            std::transform(alpha, alpha + width, reinterpret_cast<QRgb *>(band.scanLine(y)),
                           [&colors](unsigned char value) { return colors[value]; });
        }
        painter.drawImage(m_bounds.topLeft() + QPoint(0, top), band);
    }
}
