#ifndef MINMAXPYRAMID_P_H
#define MINMAXPYRAMID_P_H

#include "sampleextent_p.h"

#include <QtCore/QPointF>
#include <QtCore/QVector>

/// Finds the extent of y in `count` points.
using ExtentScan = SampleExtent (*)(const QPointF *points, int count);

/// The scan that counts every y but NaN.
[[nodiscard]] SampleExtent extentOfY(const QPointF *points, int count);

/// An index that tells the extent of y in any part of a series in a time that grows with the logarithm of its
/// length. It takes some 7 % of the memory of the series, whose points it does not keep: every question needs
/// the same points again.
class MinMaxPyramid
{
public:
    [[nodiscard]] bool isEmpty() const { return m_levels.isEmpty(); }

    /// Points of which the index keeps one extent.
    static constexpr int finestBlock = 16;

    /// `finest` holds the extents of all whole blocks of points; `scan` is for the points of parts of a
    /// block.
    void build(const QVector<SampleExtent> &finest, ExtentScan scan);
    void clear() { m_levels.clear(); }

    /// The extent of y in the points from `begin` up to, and without, `end`.
    [[nodiscard]] SampleExtent extent(const QPointF *points, int begin, int end) const;

private:
    ExtentScan m_scan = extentOfY;
    QVector<QVector<SampleExtent>> m_levels; // the finest first; only whole blocks
};

#endif // MINMAXPYRAMID_P_H
