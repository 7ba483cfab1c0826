#ifndef REDUCEDPOLYLINE_P_H
#define REDUCEDPOLYLINE_P_H

#include "sampleseries_p.h"

class QPainter;

/// Draws a polyline through all samples with the painter's pen and transform, as drawPolyline() does, but
/// only what makes a difference on the screen: the time depends on the size of the picture and, if x ascends,
/// not on the number of samples. Gaps in the series are gaps in the line.
///
/// If x does not ascend, every sample is drawn. On anything but a picture of pixels with axes along its
/// edges, it is drawn with drawPolyline().
void drawReducedPolyline(QPainter &painter, SampleSeries &series);

#endif // REDUCEDPOLYLINE_P_H
