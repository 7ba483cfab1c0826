#ifndef VIEWER_REDUCTION_H
#define VIEWER_REDUCTION_H

#include <QtCore/QPointF>
#include <QtCore/QVector>

/// Points that look the same as all samples between \a left and \a right when they are drawn \a columns
/// pixels wide: of the samples in one pixel column, the first, the lowest, the highest and the last one. A
/// column whose samples are all gaps (NaN) gets one gap. The next samples beyond either side are included, so
/// that the line leaves the plot as it should.
///
/// \a x must not decrease and holds no NaN. \a x and \a y have the same length.
QVector<QPointF> reducedPoints(const QVector<double> &x, const QVector<double> &y, double left, double right,
                               int columns);

/// All samples as points.
QVector<QPointF> allPoints(const QVector<double> &x, const QVector<double> &y);

/// Whether a sample stands between two gaps, so that a line would not show it.
bool hasLonelySample(const QVector<double> &y);

#endif // VIEWER_REDUCTION_H
