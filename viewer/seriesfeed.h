#ifndef VIEWER_SERIESFEED_H
#define VIEWER_SERIESFEED_H

#include <QtCore/QPointF>
#include <QtCore/QVector>

struct PlottedSeries;

/// The samples as points. \a x and \a y have the same length.
QVector<QPointF> pointsOf(const QVector<double> &x, const QVector<double> &y);

/// Makes the channel of \a series a line through its data, with dots if a sample stands between two gaps. The
/// channel gets all of the samples, and draws what can be seen of them.
void feedSeries(const PlottedSeries &series);

#endif // VIEWER_SERIESFEED_H
