#include "reducedline_p.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int fewSamples = 4; // as many as stand for all samples of a column: none is left out

// Pixels.
constexpr double levelHeight = 1.0; // that cannot be told from a level
constexpr double leastJump = 2.0;
constexpr double leastLevelWidth = 0.125;

/// What the line does in a column; pixels.
struct ColumnShape
{
    QPointF first;
    QPointF last;
    double top = 0.0;
    double bottom = 0.0;
    double middle = 0.0; ///< x

    /// Whether nothing in the column lies beyond its first and its last sample.
    [[nodiscard]] bool isMonotone() const
    {
        return top == std::min(first.y(), last.y()) && bottom == std::max(first.y(), last.y());
    }
};

class LineReducer
{
public:
    LineReducer(SampleSeries &series, const PixelMapping &mapping, LineQuality quality, double penWidth)
        : m_series(series)
        , m_points(series.points().constData())
        , m_mapping(mapping)
        , m_quality(quality)
        , m_leastBar(quality == LineQuality::Hairline ? 0.0 : 2 * penWidth + 2)
    {
    }

    ReducedLine reduced(const QVector<ColumnSamples> &columns)
    {
        for (const ColumnSamples &column : columns) {
            if (column.samples.begin == column.run.begin)
                endStroke();
            append(column);
        }
        endStroke();
        return m_line;
    }

private:
    void append(ColumnSamples column)
    {
        if (m_quality == LineQuality::Hairline) {
            while (const std::optional<int> jump = jumpFromLevel(column)) {
                appendLevel({column.samples.begin, *jump});
                column.samples.begin = *jump;
            }
        }
        m_before = column.samples;
        if (column.samples.size() <= fewSamples) {
            m_lastIsBar = false;
            for (int i = column.samples.begin; i < column.samples.end; ++i)
                m_stroke.append(pixel(i));
            return;
        }
        const ColumnShape shape = shapeOf(column);
        const bool isBar = m_quality != LineQuality::Transparent && !shape.isMonotone()
                           && shape.bottom - shape.top >= m_leastBar;
        if (isBar)
            appendBar(column, shape);
        else
            appendPoints(shape);
    }

    /// Whether the stroke comes to its end on a level, from samples of which some were left out.
    [[nodiscard]] bool isOnLevel() const
    {
        return m_before.size() > fewSamples && m_stroke.size() > 1
               && isSameLevel(m_stroke.constLast().y(), m_stroke.at(m_stroke.size() - 2).y());
    }

    static bool isSameLevel(double one, double other) { return std::abs(one - other) < levelHeight; }

    /// The sample that jumps away from the level that the line has in, or before, the column, if one does.
    [[nodiscard]] std::optional<int> jumpFromLevel(const ColumnSamples &column) const
    {
        const IndexRange &samples = column.samples;
        if (samples.size() <= fewSamples)
            return std::nullopt;
        const bool onLevelBefore = isOnLevel();
        const QPointF start = onLevelBefore ? m_stroke.constLast() : pixel(samples.begin);
        int i = onLevelBefore ? samples.begin : samples.begin + 1;
        while (i < samples.end && isSameLevel(pixel(i).y(), start.y())
               && std::abs(pixel(i).x() - start.x()) < leastLevelWidth)
            ++i;
        const bool isLevel
            = onLevelBefore || i == samples.end || std::abs(pixel(i).x() - start.x()) >= leastLevelWidth;
        if (!isLevel)
            return std::nullopt;
        i = endOfLevel({i, samples.end}, start.y());
        const double before = i > samples.begin ? pixel(i - 1).y() : start.y();
        if (i == samples.end || std::abs(pixel(i).y() - before) < leastJump)
            return std::nullopt;
        return i;
    }

    /// The first of `samples` that is not on the level `y`.
    [[nodiscard]] int endOfLevel(IndexRange samples, double y) const
    {
        // Whether a whole range is on the level is quicker to find out than for each sample.
        while (samples.begin < samples.end) {
            const int middle = samples.begin + (samples.size() + 1) / 2;
            const SampleExtent extent = m_series.extent({samples.begin, middle});
            if (isSameLevel(m_mapping.y(extent.low), y) && isSameLevel(m_mapping.y(extent.high), y))
                samples.begin = middle;
            else
                samples.end = middle - 1;
        }
        return samples.begin;
    }

    /// Qt draws the line away from a level from the last sample that made it set a pixel, which is the first
    /// one after the middle of a column.
    void appendLevel(const IndexRange &level)
    {
        const int start = firstBeyondMiddle(level);
        if (start < level.end) {
            m_stroke.append(pixel(level.begin));
            m_stroke.append(pixel(start));
        } else if (isOnLevel()) {
            m_stroke.last() = pixel(std::min(firstBeyondMiddle(m_before), m_before.end - 1));
        } else if (level.size() > 0) {
            m_stroke.append(pixel(level.begin));
        }
        m_lastIsBar = false;
        m_before = {};
    }

    /// The first of `samples`, all in one column, on the other side of its middle than the one before it.
    [[nodiscard]] int firstBeyondMiddle(const IndexRange &samples) const
    {
        const auto side = [this](int i) {
            const double x = pixel(i).x();
            return x - std::floor(x) < 0.5;
        };
        if (samples.size() == 0)
            return samples.end;
        const bool sideAtBegin = side(samples.begin);
        int low = samples.begin;
        int high = samples.end;
        while (low < high) {
            const int middle = low + (high - low) / 2;
            if (side(middle) == sideAtBegin)
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    }

    [[nodiscard]] QPointF pixel(int i) const { return m_mapping.map(m_points[i]); }

    [[nodiscard]] ColumnShape shapeOf(const ColumnSamples &column) const
    {
        const SampleExtent extent = m_series.extent(column.samples);
        const double low = m_mapping.y(extent.low);
        const double high = m_mapping.y(extent.high);
        return {pixel(column.samples.begin), pixel(column.samples.end - 1), std::min(low, high),
                std::max(low, high), column.column + 0.5};
    }

    /// The extreme that is nearer to the first sample comes first.
    void appendPoints(const ColumnShape &shape)
    {
        m_lastIsBar = false;
        m_stroke.append(shape.first);
        if (!shape.isMonotone()) {
            const bool topFirst = shape.first.y() - shape.top < shape.bottom - shape.first.y();
            m_stroke.append(QPointF(shape.middle, topFirst ? shape.top : shape.bottom));
            m_stroke.append(QPointF(shape.middle, topFirst ? shape.bottom : shape.top));
        }
        m_stroke.append(shape.last);
    }

    void appendBar(const ColumnSamples &column, const ColumnShape &shape)
    {
        const ColumnBar bar = barOf(column, shape);
        if (!m_stroke.isEmpty()) {
            if (!m_lastIsBar || !joins(m_line.bars.constLast(), bar, m_stroke.constLast(), shape.first))
                m_stroke.append(shape.first);
            endStroke();
        }
        m_line.bars.append(bar);
        m_stroke.append(shape.last);
        m_lastIsBar = true;
    }

    /// Qt sets a pixel of a steep hairline if the line passes the middle of its row. Where the line turns
    /// back at the bottom, Qt also sets the pixel that it only enters, and mostly one more if it takes many
    /// samples to pass a row.
    [[nodiscard]] ColumnBar barOf(const ColumnSamples &column, const ColumnShape &shape) const
    {
        if (m_quality != LineQuality::Hairline)
            return {column.column, shape.top, shape.bottom};
        const bool hasBefore = column.samples.begin > column.run.begin;
        const bool hasAfter = column.samples.end < column.run.end;
        const double before = hasBefore ? pixel(column.samples.begin - 1).y() : shape.first.y();
        const double after = hasAfter ? pixel(column.samples.end).y() : shape.last.y();
        const bool goesOnDownwards = (shape.first.y() == shape.bottom && before > shape.bottom)
                                     || (shape.last.y() == shape.bottom && after > shape.bottom);
        const double lastRow = std::floor(shape.bottom);
        double end = lastRow + 1.0;
        if (shape.bottom - lastRow > 0.5 + meanStep(column.samples))
            end += 1.0;
        else if (goesOnDownwards)
            end = std::floor(shape.bottom + 0.5);
        return {column.column, std::floor(shape.top + 0.5), end};
    }

    /// How far y moves from sample to sample, in pixels, judged by a few of them.
    [[nodiscard]] double meanStep(const IndexRange &samples) const
    {
        const int steps = std::min(samples.size(), 16) - 1;
        double way = 0.0;
        for (int i = samples.begin; i < samples.begin + steps; ++i)
            way += std::abs(pixel(i + 1).y() - pixel(i).y());
        return way / steps;
    }

    /// Whether two bars cover the line from the one to the other.
    static bool joins(const ColumnBar &one, const ColumnBar &other, const QPointF &from, const QPointF &to)
    {
        // Qt truncates to fractions of a pixel.
        const auto truncated = [](double x) { return std::floor(x * 64.0) / 64.0; };
        if (std::abs(one.column - other.column) != 1)
            return false;
        const double border = std::max(one.column, other.column);
        const double width = truncated(to.x()) - truncated(from.x());
        const double share = width == 0.0 ? 0.5 : (border - truncated(from.x())) / width;
        const double y = from.y() + (to.y() - from.y()) * share;
        return y >= one.top && y <= one.bottom && y >= other.top && y <= other.bottom;
    }

    void endStroke()
    {
        if (m_stroke.size() > 1)
            m_line.strokes.append(m_stroke);
        m_stroke.clear();
        m_lastIsBar = false;
    }

    SampleSeries &m_series;
    const QPointF *m_points;
    PixelMapping m_mapping;
    LineQuality m_quality;
    double m_leastBar; // pixels
    ReducedLine m_line;
    QPolygonF m_stroke;
    IndexRange m_before;      // the samples that were appended last
    bool m_lastIsBar = false; // the stroke is only the last point of a bar
};

} // namespace

ReducedLine reducedLine(SampleSeries &series, const QVector<ColumnSamples> &columns,
                        const PixelMapping &mapping, LineQuality quality, double penWidth)
{
    return LineReducer(series, mapping, quality, penWidth).reduced(columns);
}
