#ifndef COLUMNREDUCTION_P_H
#define COLUMNREDUCTION_P_H

#include "sampleseries_p.h"

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>

/// The way from data units to pixels of the paint device where both axes stay parallel to its edges.
class PixelMapping
{
public:
    PixelMapping() = default;
    explicit PixelMapping(const QTransform &transform)
        : m_xScale(transform.m11())
        , m_xOffset(transform.dx())
        , m_yScale(transform.m22())
        , m_yOffset(transform.dy())
    {
    }

    [[nodiscard]] double x(double value) const { return limited(m_xScale * value + m_xOffset); }
    [[nodiscard]] double y(double value) const { return limited(m_yScale * value + m_yOffset); }
    [[nodiscard]] QPointF map(const QPointF &point) const { return QPointF(x(point.x()), y(point.y())); }

    /// Pixels for a difference of y.
    [[nodiscard]] double height(double difference) const { return std::abs(m_yScale * difference); }

    /// Whether pixels grow with the values of x.
    [[nodiscard]] bool isForward() const { return m_xScale >= 0.0; }

private:
    /// Numbers that overflowed become large ones.
    static double limited(double pixel) { return std::max(-1e300, std::min(1e300, pixel)); }

    double m_xScale = 1.0;
    double m_xOffset = 0.0;
    double m_yScale = 1.0;
    double m_yOffset = 0.0;
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

/// From the first to the last of the samples that visibleColumns() looks at, with the gaps between them.
[[nodiscard]] IndexRange visibleSpan(SampleSeries &series, const PixelMapping &mapping, double left,
                                     double right);

/// Which of the samples between two gaps, by their place in SampleSeries::loneSamples(), lie between the
/// pixels `left` and `right`; all of them if the series does not ascend.
[[nodiscard]] IndexRange visibleLoneSamples(SampleSeries &series, const PixelMapping &mapping, double left,
                                            double right);

#endif // COLUMNREDUCTION_P_H
