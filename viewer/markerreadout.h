#ifndef VIEWER_MARKERREADOUT_H
#define VIEWER_MARKERREADOUT_H

#include "markers.h"

#include <QtCore/QString>

class PlotReadout;

/// What markers measure on a plot, as rich text. Channels that are hidden are left out.
///
/// - Of the lines: x, the sample of each channel that is closest, and the differences.
/// - Of the region: its sides and, of each channel, how many samples are drawn within it, and their mean,
///   minimum and maximum.
/// - Of the circle: its centre and radii.
///
/// x and y are those of the first system; a channel of another one is measured where it is seen.
QString markerReadout(const PlotReadout &plot, const Markers &markers);

#endif // VIEWER_MARKERREADOUT_H
