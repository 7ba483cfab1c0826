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

    /// The parts between the gaps that have at least two samples, and thus a line.
    [[nodiscard]] const QVector<IndexRange> &runs();

    /// The samples between two gaps.
    [[nodiscard]] const QVector<int> &loneSamples();

    /// Whether x grows, or stays, from each sample to the next one that is no gap.
    [[nodiscard]] bool isAscending();

    /// The extent of y in a part of the series, gaps left out. Quick if the series ascends.
    [[nodiscard]] SampleExtent extent(const IndexRange &range);

    /// Has the processor fetch those samples of a range that extent() reads, at both ends.
    void prefetch(const IndexRange &range) const;

private:
    void inspect();
    void appendToRuns(const IndexRange &samples);
    void endRun();
    void appendOneByOne(const IndexRange &samples);
    void appendExtents(QVector<SampleExtent> &extents, const IndexRange &samples) const;

    QVector<QPointF> m_points;
    QVector<IndexRange> m_runs;
    QVector<int> m_loneSamples;
    MinMaxPyramid m_pyramid; // of ascending series
    ExtentScan m_scan = extentOfY;
    bool m_inspected = false;
    bool m_ascending = true;
    IndexRange m_run;     // the one that inspect() is in
    double m_lastX = 0.0; // of the last sample that is no gap
};

#endif // SAMPLESERIES_P_H
