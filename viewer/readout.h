#ifndef VIEWER_READOUT_H
#define VIEWER_READOUT_H

#include "axisfeed.h"

/// What is read from a plot, in words.
namespace Readout {

/// How the values of one axis are written.
struct AxisText
{
    AxisScale scale = AxisScale::Numbers;
    NumberFormat numberFormat = NumberFormat::Compact;
    QString timeFormat; ///< as ZrQtAxis takes it; empty: the viewer's own
    double low = 0.0;   ///< the range that is visible, in units of the canvas
    double high = 1.0;
};

/// Index of the sample whose x is closest to \a x, the first one of several. Samples whose x or y is NaN do
/// not count, and with \a positiveOnly neither do those not above 0. \a sorted tells that no x is smaller
/// than the one before. -1 if no sample counts or \a x is NaN.
int nearestSample(const QVector<double> &xs, const QVector<double> &ys, double x, bool sorted,
                  bool positiveOnly);

/// \a value with 12 digits at most; scientific from 10^12 and below 10^-4, unless \a format says otherwise.
QString numberText(double value, NumberFormat format);

/// The way from one number to another, with no digit behind the last one that both texts show.
QString numberDifferenceText(double from, double to, NumberFormat format);

/// A date and time, or a time of day, with all the parts that are not 0: "21 Nov 2026 14:03". In a range of
/// 60 days and more, the date is written as such an axis does: "2026-11-21 14:03".
QString timeText(const AxisText &axis, double milliseconds);

/// A sample's value, which on a logarithmic axis is the number itself.
QString sampleText(const AxisText &axis, double value);

/// A position, in units of the canvas, with no more digits than pixels can tell apart.
QString positionText(const AxisText &axis, double position);

/// The way from one position to another: a number with its sign, a duration such as "-1 d 02:30:00", or the
/// factor between two values of a logarithmic axis, "×100".
QString differenceText(const AxisText &axis, double from, double to);

} // namespace Readout

#endif // VIEWER_READOUT_H
