#ifndef REDUCEDMARKERS_P_H
#define REDUCEDMARKERS_P_H

#include "pointmarkers_p.h"
#include "sampleseries_p.h"

class QPainter;

/// Draws markers as drawPointMarkers() does, but only those that can be seen. If there are many, those of one
/// kind are copies of one picture, and of opaque ones that fall on the same pixel only one is drawn. Many
/// crosses are moved by up to a quarter of a pixel for that.
void drawReducedMarkers(QPainter &painter, SampleSeries &series, const MarkerStyle &style);

#endif // REDUCEDMARKERS_P_H
