#ifndef SAMPLESERIES_P_H
#define SAMPLESERIES_P_H

#include "minmaxpyramid_p.h"

#include <QtCore/QPointF>
#include <QtCore/QVector>

/// The indices from `begin` up to, and without, `end`.
struct IndexRange
{
    int begin = 0;
    int end = 0;

    [[nodiscard]] int size() const { return end - begin; }
};

[[nodiscard]] inline bool operator==(const IndexRange &one, const IndexRange &other)
{
    return one.begin == other.begin && one.end == other.end;
}

/// What painting needs to know of a series of samples: where its gaps are, whether it can be searched by x,
/// and the extent of y in any part of it. Found out when it is first asked for, in one pass: reading the
/// memory of a long series costs more than what is done with it.
///
/// A sample is a gap if one of its coordinates is NaN, infinite, or at the end of the range that channels
/// store, which is where infinity is put.
class SampleSeries
{
public:
    /// Takes other points, shared and not copied, and forgets what was known of the old ones. Nothing changes
    /// if it shares these points already.
    void reset(const QVector<QPointF> &points);
    void clear() { reset({}); }

    [[nodiscard]] const QVector<QPointF> &points() const { return m_points; }

    /// The parts between the gaps, none of them empty.
    [[nodiscard]] const QVector<IndexRange> &runs();

    /// Whether x grows, or stays, from each sample to the next one that is no gap.
    [[nodiscard]] bool isAscending();

    /// The extent of y in a part of the series, gaps left out.
    [[nodiscard]] SampleExtent extent(const IndexRange &range);

private:
    void inspect();
    void appendToRuns(const IndexRange &samples);
    void appendOneByOne(const IndexRange &samples);
    void appendExtents(QVector<SampleExtent> &extents, const IndexRange &samples, ExtentScan scan) const;

    QVector<QPointF> m_points;
    QVector<IndexRange> m_runs;
    MinMaxPyramid m_pyramid;
    bool m_inspected = false;
    bool m_ascending = true;
    double m_lastX = 0.0; // of the last sample in m_runs
};

#endif // SAMPLESERIES_P_H
