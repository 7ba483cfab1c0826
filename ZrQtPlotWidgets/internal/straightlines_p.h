#ifndef STRAIGHTLINES_P_H
#define STRAIGHTLINES_P_H

#include <QtCore/QLine>

class QPainter;

/// Draws horizontal and vertical lines with the painter's pen, both end points included.
///
/// Qt draws even those point by point. Where the pen covers just the pixels of a line, they are filled as a
/// rectangle: the same picture, dozens of times as fast.
void drawStraightLines(QPainter &painter, const QLine *lines, int count);

#endif // STRAIGHTLINES_P_H
