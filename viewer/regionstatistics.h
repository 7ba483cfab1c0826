#ifndef VIEWER_REGIONSTATISTICS_H
#define VIEWER_REGIONSTATISTICS_H

#include <QtCore/QVector>

#include <limits>

/// A rectangle in the values of one channel; its borders belong to it.
struct ValueWindow
{
    double left = 0.0;
    double right = 0.0;
    double low = 0.0;
    double high = 0.0;
};

/// What is said of some samples; all NaN if there are none.
struct SampleStatistics
{
    int count = 0;
    double mean = std::numeric_limits<double>::quiet_NaN();
    double minimum = std::numeric_limits<double>::quiet_NaN();
    double maximum = std::numeric_limits<double>::quiet_NaN();
};

/// Statistics of the samples in \a window. Samples whose x or y is NaN do not count. \a sorted tells that no
/// x is smaller than the one before and none is NaN; then only samples between the sides are looked at. A
/// window with a NaN holds nothing.
SampleStatistics statisticsIn(const QVector<double> &xs, const QVector<double> &ys, bool sorted,
                              const ValueWindow &window);

#endif // VIEWER_REGIONSTATISTICS_H
