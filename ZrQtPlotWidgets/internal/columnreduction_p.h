#ifndef COLUMNREDUCTION_P_H
#define COLUMNREDUCTION_P_H

#include "sampleseries_p.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QTransform>

/// The way from data units to pixels of the paint device where both axes stay parallel to its edges.
class PixelMapping
{
public:
    PixelMapping() = default;
    explicit PixelMapping(const QTransform &transform)
        : m_transform(transform)
    {
    }

    [[nodiscard]] double x(double value) const
    {
        return limited(m_transform.m11() * value + m_transform.dx());
    }
    [[nodiscard]] double y(double value) const
    {
        return limited(m_transform.m22() * value + m_transform.dy());
    }
    [[nodiscard]] QPointF map(const QPointF &point) const { return QPointF(x(point.x()), y(point.y())); }

    /// Whether pixels grow with the values of x.
    [[nodiscard]] bool isForward() const { return m_transform.m11() >= 0.0; }

private:
    /// Numbers that overflowed become large ones.
    static double limited(double pixel) { return qBound(-1e300, pixel, 1e300); }

    QTransform m_transform;
};

/// Samples that lie in one column of pixels, all in the same run between two gaps unless there are too many
/// runs in the column to tell them apart.
struct ColumnSamples
{
    int column = 0;
    IndexRange samples;
    IndexRange run;       ///< the run around the samples
    bool hasGaps = false; ///< many runs: only the first and the last sample are sure to be none
};

/// The samples of an ascending series that can be seen between the pixels `left` and `right`, in order, and
/// one neighbour at each side, in a column of its own. A neighbour may be very far away: its column is
/// limited to a billion.
[[nodiscard]] QVector<ColumnSamples> visibleColumns(SampleSeries &series, const PixelMapping &mapping,
                                                    double left, double right);

/// The index ranges of the samples that visibleColumns() looks at; all runs of the series if it does not
/// ascend. None of them has gaps.
[[nodiscard]] QVector<IndexRange> visibleRanges(SampleSeries &series, const PixelMapping &mapping,
                                                double left, double right);

/// Which of the samples between two gaps, by their place in SampleSeries::loneSamples(), lie between the
/// pixels `left` and `right`; all of them if the series does not ascend.
[[nodiscard]] IndexRange visibleLoneSamples(SampleSeries &series, const PixelMapping &mapping, double left,
                                            double right);

#endif // COLUMNREDUCTION_P_H
