#ifndef STROKERUNS_P_H
#define STROKERUNS_P_H

#include <QtCore/QRectF>
#include <QtGui/QPolygonF>

class QPainter;

/// Draws a line with an opaque and solid pen of any width in short pieces without visible joints. The painter
/// must be free of transforms. Qt strokes a long line in one piece only in a time that grows with the square
/// of what lies above each other: 100 000 noisy points that are two pixels wide take it seconds.
void strokeInRuns(QPainter &painter, const QPolygonF &line);

/// The same for a dashed pen: draws the dashes that lie in `box`, a few at a time.
void strokeDashes(QPainter &painter, const QPolygonF &line, const QRectF &box);

#endif // STROKERUNS_P_H
