#ifndef STROKERUNS_P_H
#define STROKERUNS_P_H

#include <QtGui/QPolygonF>

class QPainter;

/// Whether what is drawn twice with the painter's pen looks as if it were drawn once.
[[nodiscard]] bool isOpaqueAndSolid(const QPainter &painter);

/// Draws a line with an opaque and solid pen of any width in short pieces without visible joints. The painter
/// must be free of transforms. Qt strokes a long line in one piece only in a time that grows with the square
/// of what lies above each other: 100 000 noisy points that are two pixels wide take it seconds.
void strokeInRuns(QPainter &painter, const QPolygonF &line);

#endif // STROKERUNS_P_H
