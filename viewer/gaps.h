#ifndef VIEWER_GAPS_H
#define VIEWER_GAPS_H

#include <QtCore/QVector>

/// Whether a sample stands between two gaps (NaN), so that a line would not show it.
bool hasLonelySample(const QVector<double> &y);

#endif // VIEWER_GAPS_H
