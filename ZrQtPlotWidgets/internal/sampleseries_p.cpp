#include "sampleseries_p.h"

#include "coordinaterange_p.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int block = 256; // samples that are looked at without a branch

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
    m_points = points;
    m_runs.clear();
    m_pyramid.clear();
    m_inspected = false;
}

const QVector<IndexRange> &SampleSeries::runs()
{
    inspect();
    return m_runs;
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
    const QPointF *points = m_points.constData();
    double before = -largestCoordinate;
    IndexRange run;
    for (int start = 0; start < m_points.size(); start += block) {
        const int end = std::min(start + block, m_points.size());
        if (isPlain(points + start, end - start, before)) {
            before = points[end - 1].x();
            run.end = end;
            continue;
        }
        for (int i = start; i < end; ++i) {
            if (isGap(points[i])) {
                if (run.size() > 0)
                    m_runs.append(run);
                run.begin = i + 1;
            } else {
                m_ascending = m_ascending && points[i].x() >= before;
                before = points[i].x();
            }
            run.end = i + 1;
        }
    }
    if (run.size() > 0)
        m_runs.append(run);
}

void SampleSeries::buildIndex()
{
    inspect();
    if (m_pyramid.isEmpty())
        m_pyramid.build(m_points.constData(), m_points.size(), scan());
}

SampleExtent SampleSeries::extent(const IndexRange &range)
{
    inspect();
    if (m_pyramid.isEmpty())
        return scan()(m_points.constData() + range.begin, range.size());
    return m_pyramid.extent(m_points.constData(), range.begin, range.end);
}

ExtentScan SampleSeries::scan() const
{
    const bool hasGaps = m_runs.size() != 1 || m_runs.constFirst().size() != m_points.size();
    return hasGaps ? extentBetweenGaps : extentOfY;
}
