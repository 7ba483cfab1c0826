#include "columnreduction_p.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double farthestColumn = 1e9;
constexpr int mostRunsInAColumn = 8; // the rest are drawn together

/// Goes through a series from the left of its data to the right.
class ColumnWalk
{
public:
    ColumnWalk(SampleSeries &series, const PixelMapping &mapping, double left, double right)
        : m_runs(series.runs())
        , m_points(series.points().constData())
        , m_mapping(mapping)
        , m_left(left)
        , m_right(right)
    {
    }

    QVector<ColumnSamples> columns(int samples)
    {
        m_columns.reserve(qCeil(qBound(0.0, m_right - m_left + 2.0, double(samples))));
        int run = firstRun();
        while (run < m_runs.size() && !isBeyond(m_runs.at(run).begin))
            run = appendRun(run) + 1;
        return m_columns;
    }

    [[nodiscard]] QVector<IndexRange> ranges() const
    {
        QVector<IndexRange> ranges;
        for (int run = firstRun(); run < m_runs.size() && !isBeyond(m_runs.at(run).begin); ++run)
            ranges.append(visiblePart(m_runs.at(run)));
        return ranges;
    }

    [[nodiscard]] IndexRange span() const
    {
        const int first = firstRun();
        const int end
            = firstWhere({first, m_runs.size()}, [this](int i) { return isBeyond(m_runs.at(i).begin); });
        if (first == end)
            return {};
        return {visiblePart(m_runs.at(first)).begin, visiblePart(m_runs.at(end - 1)).end};
    }

    [[nodiscard]] IndexRange visibleOf(const QVector<int> &samples) const
    {
        const auto *begin
            = std::partition_point(samples.cbegin(), samples.cend(), [this](int i) { return isBefore(i); });
        const auto *end = std::partition_point(begin, samples.cend(), [this](int i) { return !isBeyond(i); });
        return {static_cast<int>(begin - samples.cbegin()), static_cast<int>(end - samples.cbegin())};
    }

private:
    /// The first run with a sample that is not before the view.
    [[nodiscard]] int firstRun() const
    {
        const auto first = std::partition_point(
            m_runs.cbegin(), m_runs.cend(), [this](const IndexRange &run) { return isBefore(run.end - 1); });
        return static_cast<int>(first - m_runs.cbegin());
    }

    /// The part of `run` that can be seen, with one neighbour at each side.
    [[nodiscard]] IndexRange visiblePart(const IndexRange &run) const
    {
        const int first = firstWhere(run, [this](int i) { return !isBefore(i); });
        const int beyond = firstWhere({first, run.end}, [this](int i) { return isBeyond(i); });
        return {std::max(first - 1, run.begin), std::min(beyond + 1, run.end)};
    }

    [[nodiscard]] double pixel(int i) const { return m_mapping.x(m_points[i].x()); }
    [[nodiscard]] bool isBefore(int i) const
    {
        return m_mapping.isForward() ? pixel(i) < m_left : pixel(i) > m_right;
    }
    [[nodiscard]] bool isBeyond(int i) const
    {
        return m_mapping.isForward() ? pixel(i) > m_right : pixel(i) < m_left;
    }

    /// The first index in `range` for which `predicate` holds; it must hold for all that follow.
    template <typename Predicate> static int firstWhere(IndexRange range, Predicate predicate)
    {
        while (range.begin < range.end) {
            const int middle = range.begin + range.size() / 2;
            if (predicate(middle))
                range.end = middle;
            else
                range.begin = middle + 1;
        }
        return range.begin;
    }

    /// Appends the columns of a run and returns it, or the last run that was drawn together with it.
    int appendRun(int run)
    {
        const IndexRange whole = m_runs.at(run);
        const IndexRange part = visiblePart(whole);
        int i = part.begin;
        while (i < part.end) {
            const double column = std::floor(pixel(i));
            const int end = endOfColumn({i, part.end}, column);
            const int number = static_cast<int>(qBound(-farthestColumn, column, farthestColumn));
            if (end == whole.end && isCrowded(number))
                return appendCrowd(run, i, column);
            append(number, {i, end}, whole);
            m_lastCount = end - i;
            i = end;
        }
        return run;
    }

    void append(int column, const IndexRange &samples, const IndexRange &run)
    {
        const bool sameColumn = !m_columns.isEmpty() && m_columns.constLast().column == column;
        m_partsInColumn = sameColumn ? m_partsInColumn + 1 : 1;
        m_columns.append({column, samples, run});
    }

    [[nodiscard]] bool isCrowded(int column) const
    {
        return !m_columns.isEmpty() && m_columns.constLast().column == column
               && m_partsInColumn >= mostRunsInAColumn;
    }

    /// Appends all runs that end in `column` as one, and returns the last of them.
    int appendCrowd(int run, int begin, double column)
    {
        const int next = firstWhere({run, m_runs.size()}, [this, column](int i) {
            return std::floor(pixel(m_runs.at(i).end - 1)) != column;
        });
        const IndexRange samples{begin, m_runs.at(next - 1).end};
        append(m_columns.constLast().column, samples, samples);
        m_columns.last().hasGaps = true;
        return next - 1;
    }

    /// The end of the samples in `range` that lie in the column of the first one. Neighbouring columns often
    /// hold about the same number.
    [[nodiscard]] int endOfColumn(const IndexRange &range, double column) const
    {
        const auto isInside = [this, column](int i) {
            const double x = pixel(i);
            return x >= column && x < column + 1.0;
        };
        int inside = range.begin;
        int outside = range.end;
        const int guess = std::min(m_lastCount, range.size() - 1);
        int step = 1;
        if (isInside(inside + guess)) {
            inside += guess;
            while (step < outside - inside && isInside(inside + step)) {
                inside += step;
                step *= 2;
            }
            outside = std::min(outside, step < outside - inside ? inside + step : outside);
        } else {
            outside = inside + guess;
            while (step < outside - inside && !isInside(outside - step)) {
                outside -= step;
                step *= 2;
            }
            inside = std::max(inside, outside - step);
        }
        return firstWhere({inside + 1, outside}, [&isInside](int i) { return !isInside(i); });
    }

    const QVector<IndexRange> &m_runs;
    const QPointF *m_points;
    PixelMapping m_mapping;
    double m_left;
    double m_right;
    QVector<ColumnSamples> m_columns;
    int m_partsInColumn = 0;
    int m_lastCount = 0;
};

} // namespace

QVector<ColumnSamples> visibleColumns(SampleSeries &series, const PixelMapping &mapping, double left,
                                      double right)
{
    return ColumnWalk(series, mapping, left, right).columns(series.points().size());
}

QVector<IndexRange> visibleRanges(SampleSeries &series, const PixelMapping &mapping, double left,
                                  double right)
{
    return series.isAscending() ? ColumnWalk(series, mapping, left, right).ranges() : series.runs();
}

IndexRange visibleSpan(SampleSeries &series, const PixelMapping &mapping, double left, double right)
{
    return ColumnWalk(series, mapping, left, right).span();
}

IndexRange visibleLoneSamples(SampleSeries &series, const PixelMapping &mapping, double left, double right)
{
    if (!series.isAscending())
        return {0, series.loneSamples().size()};
    return ColumnWalk(series, mapping, left, right).visibleOf(series.loneSamples());
}
