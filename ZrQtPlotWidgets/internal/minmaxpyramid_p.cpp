#include "minmaxpyramid_p.h"

namespace {

constexpr int blocksPerBlock = 8;

// Independent accumulators: one alone waits for itself at every point.
constexpr int lanes = 4;

} // namespace

SampleExtent extentOfY(const QPointF *points, int count)
{
    SampleExtent extents[lanes];
    int i = 0;
    for (; i + lanes <= count; i += lanes) {
        extents[0].include(points[i].y());
        extents[1].include(points[i + 1].y());
        extents[2].include(points[i + 2].y());
        extents[3].include(points[i + 3].y());
    }
    for (; i < count; ++i)
        extents[0].include(points[i].y());
    for (int lane = 1; lane < lanes; ++lane)
        extents[0].include(extents[lane]);
    return extents[0];
}

void MinMaxPyramid::build(const QVector<SampleExtent> &finest, ExtentScan scan)
{
    m_scan = scan;
    m_levels = {finest};
    while (m_levels.constLast().size() >= blocksPerBlock) {
        const QVector<SampleExtent> &finer = m_levels.constLast();
        QVector<SampleExtent> coarser(finer.size() / blocksPerBlock);
        for (int i = 0; i < coarser.size() * blocksPerBlock; ++i)
            coarser[i / blocksPerBlock].include(finer.at(i));
        m_levels.append(coarser);
    }
}

SampleExtent MinMaxPyramid::extent(const QPointF *points, int begin, int end) const
{
    int firstBlock = (begin + finestBlock - 1) / finestBlock;
    int endBlock = end / finestBlock;
    if (firstBlock >= endBlock)
        return m_scan(points + begin, end - begin);
    SampleExtent extent = m_scan(points + begin, firstBlock * finestBlock - begin);
    extent.include(m_scan(points + qptrdiff(endBlock) * finestBlock, end - endBlock * finestBlock));
    // From both ends to the next border of the coarser level, then one level up.
    for (const QVector<SampleExtent> &level : m_levels) {
        const bool coarsest = &level == &m_levels.constLast();
        while (firstBlock < endBlock && (coarsest || firstBlock % blocksPerBlock != 0))
            extent.include(level.at(firstBlock++));
        while (firstBlock < endBlock && endBlock % blocksPerBlock != 0)
            extent.include(level.at(--endBlock));
        if (firstBlock == endBlock)
            break;
        firstBlock /= blocksPerBlock;
        endBlock /= blocksPerBlock;
    }
    return extent;
}
