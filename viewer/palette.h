#ifndef VIEWER_PALETTE_H
#define VIEWER_PALETTE_H

#include <QtGui/QColor>

/// Colour of the line number \a index, from 0 on; the colours repeat after the sixteenth. All stand out from
/// white as a line of one pixel, and the first eight can be told apart with any kind of colour vision.
///
/// Source: the palette of Masataka Okabe and Kei Ito, without its yellow, which white swallows, and Paul
/// Tol's "muted" scheme; the light ones come late.
QColor seriesColor(int index);

/// Colour of what the user puts on the data to measure with: none of the lines has one like it.
QColor markerColor();

#endif // VIEWER_PALETTE_H
