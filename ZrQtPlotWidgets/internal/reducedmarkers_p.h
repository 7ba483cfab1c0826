#ifndef REDUCEDMARKERS_P_H
#define REDUCEDMARKERS_P_H

#include "pointmarkers_p.h"
#include "sampleseries_p.h"

class QPainter;

/// Draws markers as drawPointMarkers() does, but only those that can be seen, and of the filled ones that
/// fall on the same pixel only one. The filled ones are copies of one picture.
void drawReducedMarkers(QPainter &painter, SampleSeries &series, const MarkerStyle &style);

#endif // REDUCEDMARKERS_P_H
