#include "reducedline_p.h"

#include "hairlinestroker_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int fewSamples = 4; // as many as stand for all samples of a column: none is left out

// Where a hairline is reduced to a bar, the pixels at its ends may differ by one. The lower the picture, the
// more that is of it, so the more samples are drawn one by one: as many as this, at a height of 600 pixels.
// The unit is a pixel of a line; a sample costs as much as `sampleCost` of them.
constexpr double mostExactCost = 1.5e5;
constexpr double sampleCost = 16.0;
constexpr double referenceHeight = 600.0;
constexpr double leastHeight = 150.0;

constexpr int columnsAhead = 4; // whose samples are fetched from memory meanwhile

// Of a hairline that is only partly drawn one by one.
constexpr int mostTurns = 8;
constexpr double leastTurn = 2.0; // pixels; a line with smaller ones has too many
constexpr int samplesJudged = 16;
constexpr int mostMoves = 4;

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
    LineReducer(SampleSeries &series, const PixelMapping &mapping, LineQuality quality, double penWidth,
                double top, double bottom)
        : m_series(series)
        , m_points(series.points().constData())
        , m_mapping(mapping)
        , m_quality(quality)
        , m_leastBar(quality == LineQuality::Hairline ? 0.0 : 2 * penWidth + 2)
        , m_stroker(series, mapping, top, bottom)
        , m_mostCost(mostExactCost * std::pow(referenceHeight / std::max(bottom - top, leastHeight), 2))
    {
    }

    ReducedLine reduced(const QVector<ColumnSamples> &columns)
    {
        m_mostCost /= std::max(1, columns.size());
        m_line.bars.reserve(columns.size());
        for (int i = 0; i < columns.size(); ++i) {
            if (i + columnsAhead < columns.size())
                m_series.prefetch(columns.at(i + columnsAhead).samples);
            const ColumnSamples &column = columns.at(i);
            if (column.samples.begin == column.run.begin)
                endRun();
            append(column);
        }
        endRun();
        return m_line;
    }

private:
    void append(const ColumnSamples &column)
    {
        m_lastSample = pixel(column.samples.end - 1);
        if (!column.hasGaps && isDrawnExactly(column.samples)) {
            appendEach(column.samples);
            return;
        }
        const ColumnShape shape = shapeOf(column);
        const bool mayTurn = m_quality == LineQuality::Hairline && !column.hasGaps;
        if (!mayTurn || !appendTurns(column.samples, shape))
            appendShape(column, shape);
        m_drawnExactly = {};
    }

    void appendEach(const IndexRange &samples)
    {
        const int size = m_stroke.size();
        m_stroke.resize(size + samples.size());
        std::transform(m_points + samples.begin, m_points + samples.end, m_stroke.begin() + size,
                       [this](const QPointF &point) { return m_mapping.map(point); });
        m_drawnExactly = samples;
        m_lastIsBar = false;
    }

    /// Where Qt is when it has drawn the stroke.
    [[nodiscard]] QPointF pen() const
    {
        // It is never far behind.
        QPointF pen = m_drawnExactly.size() > 0 ? pixel(m_drawnExactly.begin) : m_pen;
        for (int i = m_drawnExactly.begin + 1; i < m_drawnExactly.end; ++i) {
            const QPointF point = pixel(i);
            if (m_stroker.goesOn(pen, point))
                pen = point;
        }
        return pen;
    }

    /// Appends the samples that Qt goes by, unless they are many.
    bool appendTurns(const IndexRange &samples, const ColumnShape &shape)
    {
        if (isRestless(samples, shape) || isMostlyBetween(samples, shape))
            return false;
        const bool isHigh = shape.bottom - shape.top > mostTurns;
        const int size = m_stroke.size();
        IndexRange rest = samples;
        QPointF from = m_stroke.isEmpty() ? pixel(rest.begin++) : pen();
        if (m_stroke.isEmpty())
            m_stroke.append(from);
        for (int turn = 0; turn < mostTurns; ++turn) {
            rest.begin = m_stroker.next(from, rest);
            if (rest.begin == rest.end) {
                m_pen = from;
                m_lastIsBar = false;
                return true;
            }
            const QPointF to = pixel(rest.begin++);
            const double height = std::abs(to.y() - from.y());
            if (isHigh && height < leastTurn && height > std::abs(to.x() - from.x()))
                break;
            from = to;
            m_stroke.append(from);
        }
        m_stroke.resize(size);
        return false;
    }

    /// Whether the line goes up and down already in the first few samples: by steps longer than a smooth line
    /// needs to pass the height of the column.
    [[nodiscard]] bool isRestless(const IndexRange &samples, const ColumnShape &shape) const
    {
        const double longStep = std::min(0.5, 2.0 * (shape.bottom - shape.top) / samples.size());
        const int end = std::min(samples.begin + samplesJudged, samples.end);
        int moves = 0;
        for (int i = samples.begin + 1; i < end && moves < mostMoves; ++i)
            moves += step(i) > longStep ? 1 : 0;
        return moves == mostMoves;
    }

    [[nodiscard]] bool isDrawnExactly(const IndexRange &samples) const
    {
        if (samples.size() <= fewSamples)
            return true;
        if (m_quality != LineQuality::Hairline || samples.size() * sampleCost > m_mostCost)
            return false;
        return samples.size() * sampleCost + wayThrough(samples) <= m_mostCost;
    }

    /// How far y moves from sample to sample, in pixels.
    [[nodiscard]] double wayThrough(const IndexRange &samples) const
    {
        double way = 0.0;
        for (int i = samples.begin + 1; i < samples.end; ++i)
            way += step(i);
        return way;
    }

    /// How far y moves to sample `i` from the one before, in pixels.
    [[nodiscard]] double step(int i) const { return m_mapping.height(m_points[i].y() - m_points[i - 1].y()); }

    /// Whether the line is mostly at other heights than those of its ends and its extremes, judged by a few
    /// samples. If not, it is a level, or two, with spikes.
    [[nodiscard]] bool isMostlyBetween(const IndexRange &samples, const ColumnShape &shape) const
    {
        const double near = std::min(1.0, (shape.bottom - shape.top) / 8.0);
        const auto isBetween = [this, &shape, near](int i) {
            const double y = pixel(i).y();
            const double distance = std::min({std::abs(y - shape.first.y()), std::abs(y - shape.last.y()),
                                              y - shape.top, shape.bottom - y});
            return distance > near ? 1 : 0;
        };
        const int quarter = samples.size() / 4;
        return isBetween(samples.begin + quarter) + isBetween(samples.begin + 2 * quarter)
                   + isBetween(samples.begin + 3 * quarter)
               > 1;
    }

    void appendShape(const ColumnSamples &column, const ColumnShape &shape)
    {
        const bool isBar = m_quality != LineQuality::Transparent && !shape.isMonotone()
                           && shape.bottom - shape.top >= m_leastBar;
        if (isBar)
            appendBar(column, shape);
        else
            appendPoints(shape);
        m_pen = shape.last;
    }

    [[nodiscard]] QPointF pixel(int i) const { return m_mapping.map(m_points[i]); }

    [[nodiscard]] ColumnShape shapeOf(const ColumnSamples &column) const
    {
        const SampleExtent extent = extentOf(column);
        const double low = m_mapping.y(extent.low);
        const double high = m_mapping.y(extent.high);
        return {pixel(column.samples.begin), pixel(column.samples.end - 1), std::min(low, high),
                std::max(low, high), column.column + 0.5};
    }

    [[nodiscard]] SampleExtent extentOf(const ColumnSamples &column) const
    {
        if (column.hasGaps || column.samples.size() > MinMaxPyramid::finestBlock)
            return m_series.extent(column.samples);
        SampleExtent extent;
        for (int i = column.samples.begin; i < column.samples.end; ++i)
            extent.include(m_points[i].y());
        return extent;
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
        if (m_lastIsBar) {
            appendLineBetween(m_line.bars.constLast(), bar, m_stroke.constFirst(), entryOf(column, shape));
            m_stroke.first() = shape.last;
        } else {
            if (!m_stroke.isEmpty())
                m_stroke.append(entryOf(column, shape));
            endStroke();
            m_stroke.append(shape.last);
        }
        m_line.bars.append(bar);
        m_lastIsBar = true;
    }

    void appendLineBetween(const ColumnBar &one, const ColumnBar &other, const QPointF &from,
                           const QPointF &to)
    {
        if (joins(one, other, from, to))
            return;
        // Qt draws a line of length 0 otherwise than a stroke through two points at the same place.
        if (m_quality == LineQuality::Hairline && from != to)
            m_line.hairlines.append(QLineF(from, to));
        else
            m_line.strokes.append(QPolygonF(QVector<QPointF>{from, to}));
    }

    /// Where the line from the column before comes to.
    [[nodiscard]] QPointF entryOf(const ColumnSamples &column, const ColumnShape &shape) const
    {
        if (m_quality != LineQuality::Hairline || column.hasGaps)
            return shape.first;
        const int entry = m_stroker.next(pen(), column.samples);
        return entry < column.samples.end ? pixel(entry) : shape.first;
    }

    /// Qt sets a pixel of a steep hairline if the line passes the middle of its row. Where the line turns
    /// back at the bottom, Qt also sets the pixel that it only enters, and mostly one more if it takes many
    /// samples to pass a row.
    [[nodiscard]] ColumnBar barOf(const ColumnSamples &column, const ColumnShape &shape) const
    {
        if (m_quality != LineQuality::Hairline)
            return {column.column, shape.top, shape.bottom};
        const double firstRow = std::floor(shape.top + 0.5);
        const double lastRow = std::floor(shape.bottom);
        double end = lastRow + 1.0;
        const double rest = shape.bottom - lastRow;
        if (rest > 0.5 && rest > 0.5 + meanStep(column))
            end += 1.0;
        else if (goesOnDownwards(column, shape))
            end = std::floor(shape.bottom + 0.5);
        return {column.column, firstRow, std::max(end, firstRow + 1.0)};
    }

    /// Whether the lowest sample is the first or the last one, and the line goes on below it.
    [[nodiscard]] bool goesOnDownwards(const ColumnSamples &column, const ColumnShape &shape) const
    {
        const auto isBelow = [this, &column, &shape](int i) {
            return i >= column.run.begin && i < column.run.end && pixel(i).y() > shape.bottom;
        };
        return (shape.first.y() == shape.bottom && isBelow(column.samples.begin - 1))
               || (shape.last.y() == shape.bottom && isBelow(column.samples.end));
    }

    /// How far y moves from one sample to the next, in pixels, judged by a few of them.
    [[nodiscard]] double meanStep(const ColumnSamples &column) const
    {
        if (column.hasGaps)
            return 0.0;
        const int steps = std::min(column.samples.size(), 16) - 1;
        return wayThrough({column.samples.begin, column.samples.begin + steps + 1}) / steps;
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

    void endRun()
    {
        if (!m_stroke.isEmpty() && m_stroke.constLast() != m_lastSample)
            m_stroke.append(m_lastSample);
        endStroke();
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
    HairlineStroker m_stroker;
    double m_mostCost; // of a column that is drawn sample by sample
    ReducedLine m_line;
    QPolygonF m_stroke;
    QPointF m_pen;             // where Qt is when it has drawn the stroke, but for what follows
    IndexRange m_drawnExactly; // the samples appended last, if they are those of a whole column
    QPointF m_lastSample;      // of the run, so far
    bool m_lastIsBar = false;  // the stroke is only the last point of a bar
};

} // namespace

ReducedLine reducedLine(SampleSeries &series, const QVector<ColumnSamples> &columns,
                        const PixelMapping &mapping, LineQuality quality, double penWidth, double top,
                        double bottom)
{
    return LineReducer(series, mapping, quality, penWidth, top, bottom).reduced(columns);
}
