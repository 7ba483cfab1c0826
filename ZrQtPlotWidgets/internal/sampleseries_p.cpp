#include "sampleseries_p.h"

#include "coordinaterange_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int block = 256; // samples that are looked at without a branch, and stay in the processor's cache
static_assert(block % MinMaxPyramid::finestBlock == 0);

bool isGap(const QPointF &point)
{
    return !(std::abs(point.x()) < largestCoordinate && std::abs(point.y()) < largestCoordinate);
}

SampleExtent extentBetweenGaps(const QPointF *points, int count)
{
    SampleExtent extent;
    for (int i = 0; i < count; ++i) {
        if (!isGap(points[i]))
            extent.include(points[i].y());
    }
    return extent;
}

/// Whether `count` samples after `before` have no gaps and go on in ascending order. The first and the last x
/// tell of all between them.
bool isPlain(const QPointF *points, int count, double before)
{
    if (!(points[0].x() >= before) || isGap(points[0]) || isGap(points[count - 1]))
        return false;
    // Numbers and not bool, on purpose: nearly always both are true, and looking at all of it needs no
    // branches.
    int plain = 1;
    for (int i = 1; i < count; ++i)
        plain &= int(points[i].x() >= points[i - 1].x()) & int(std::abs(points[i].y()) < largestCoordinate);
    return plain != 0;
}

} // namespace

void SampleSeries::reset(const QVector<QPointF> &points)
{
    if (m_points.isSharedWith(points))
        return;
    m_points = points;
    m_runs.clear();
    m_loneSamples.clear();
    m_pyramid.clear();
    m_inspected = false;
}

const QVector<IndexRange> &SampleSeries::runs()
{
    inspect();
    return m_runs;
}

const QVector<int> &SampleSeries::loneSamples()
{
    inspect();
    return m_loneSamples;
}

bool SampleSeries::isAscending()
{
    inspect();
    return m_ascending;
}

void SampleSeries::inspect()
{
    if (m_inspected)
        return;
    m_inspected = true;
    m_ascending = true;
    m_lastX = -largestCoordinate;
    m_scan = extentOfY;
    QVector<SampleExtent> extents;
    extents.reserve(m_points.size() / MinMaxPyramid::finestBlock);
    for (int begin = 0; begin < m_points.size(); begin += block) {
        const IndexRange samples{begin, std::min(begin + block, m_points.size())};
        if (isPlain(m_points.constData() + begin, samples.size(), m_lastX)) {
            appendToRuns(samples);
        } else {
            appendOneByOne(samples);
            m_scan = extentBetweenGaps;
        }
        if (m_ascending)
            appendExtents(extents, samples);
    }
    endRun();
    if (m_ascending)
        m_pyramid.build(extents, m_scan);
}

/// Appends samples without gaps.
void SampleSeries::appendToRuns(const IndexRange &samples)
{
    if (m_run.end != samples.begin) {
        endRun();
        m_run.begin = samples.begin;
    }
    m_run.end = samples.end;
    m_lastX = m_points.at(samples.end - 1).x();
}

void SampleSeries::endRun()
{
    if (m_run.size() > 1)
        m_runs.append(m_run);
    else if (m_run.size() == 1)
        m_loneSamples.append(m_run.begin);
    m_run = {};
}

void SampleSeries::appendOneByOne(const IndexRange &samples)
{
    for (int i = samples.begin; i < samples.end; ++i) {
        if (isGap(m_points.at(i)))
            continue;
        m_ascending = m_ascending && m_points.at(i).x() >= m_lastX;
        appendToRuns({i, i + 1});
    }
}

/// Appends the extents of the whole blocks of the index that are in `samples`.
void SampleSeries::appendExtents(QVector<SampleExtent> &extents, const IndexRange &samples) const
{
    constexpr int step = MinMaxPyramid::finestBlock;
    for (int begin = samples.begin; begin + step <= samples.end; begin += step)
        extents.append(m_scan(m_points.constData() + begin, step));
}

SampleExtent SampleSeries::extent(const IndexRange &range)
{
    inspect();
    if (m_pyramid.isEmpty())
        return m_scan(m_points.constData() + range.begin, range.size());
    return m_pyramid.extent(m_points.constData(), range.begin, range.end);
}

void SampleSeries::prefetch(const IndexRange &range) const
{
#if defined(__GNUC__)
    constexpr int samplesPerLine = 64 / sizeof(QPointF); // of the processor's cache
    const int count = std::min(range.size(), MinMaxPyramid::finestBlock);
    for (int i = 0; i < count; i += samplesPerLine) {
        __builtin_prefetch(m_points.constData() + range.begin + i);
        __builtin_prefetch(m_points.constData() + range.end - 1 - i);
    }
#else
    Q_UNUSED(range)
#endif
}
